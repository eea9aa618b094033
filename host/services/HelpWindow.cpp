#include "HelpWindow.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QIcon>
#include <QPushButton>
#include <QShortcut>
#include <QTextBrowser>
#include <QUrl>
#include <QVariant>
#include <QVBoxLayout>

namespace {

constexpr QSize InitialSize(760, 640);

/// Colours of the pages, which bring none of their own.
const char* const PageStyle = "body { color: #e4eaea; } h1, h2, h3 { color: #93c7c7; } a { color: #4fd0d0; }"
                              " th { color: #93c7c7; }";

} // namespace

HelpWindow::HelpWindow(QWidget* parent)
    : QWidget(parent, Qt::Window)
{
    setWindowTitle(tr("Help"));
    setWindowIcon(QIcon(QStringLiteral("MainApp:/Resources/images/VeltranoBlackLogo.png")));
    setProperty("uiType", QStringLiteral("HelpWindow"));
    resize(InitialSize);

    m_browser = new QTextBrowser;
    m_browser->setAccessibleName(tr("Help page"));
    m_browser->setOpenExternalLinks(true);
    m_browser->document()->setDefaultStyleSheet(QLatin1String(PageStyle));
    m_browser->document()->setDocumentMargin(18);

    const auto addButton = [this](QHBoxLayout* bar, const QString& text, const char* slot) {
        auto* const button = new QPushButton(text);
        button->setEnabled(false);
        bar->addWidget(button);
        connect(button, SIGNAL(clicked()), m_browser, slot);
        return button;
    };
    auto* const bar = new QHBoxLayout;
    bar->setContentsMargins(12, 10, 12, 10);
    bar->setSpacing(8);
    QPushButton* const back = addButton(bar, tr("&Back"), SLOT(backward()));
    QPushButton* const forward = addButton(bar, tr("&Forward"), SLOT(forward()));
    bar->addStretch(1);
    connect(m_browser, SIGNAL(backwardAvailable(bool)), back, SLOT(setEnabled(bool)));
    connect(m_browser, SIGNAL(forwardAvailable(bool)), forward, SLOT(setEnabled(bool)));
    connect(m_browser, SIGNAL(sourceChanged(QUrl)), this, SLOT(onSourceChanged()));
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), SIGNAL(activated()), this, SLOT(close()));

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(bar);
    layout->addWidget(m_browser, 1);
}

void HelpWindow::showFile(const QString& path, const QString& folder)
{
    m_browser->setSearchPaths({folder});
    m_browser->setSource(QUrl::fromLocalFile(path));
    bringUp();
}

void HelpWindow::showUnknownTopic(const QString& topic)
{
    m_browser->setHtml(
        QStringLiteral("<h1>%1</h1><p>%2</p>")
            .arg(tr("No help found"), tr("There is no help page for \"%1\".").arg(topic).toHtmlEscaped()));
    setWindowTitle(tr("Help"));
    bringUp();
}

QString HelpWindow::plainText() const
{
    return m_browser->toPlainText();
}

QString HelpWindow::file() const
{
    return m_browser->source().toLocalFile();
}

void HelpWindow::onSourceChanged()
{
    const QString title = m_browser->documentTitle();
    setWindowTitle(title.isEmpty() ? tr("Help") : tr("%1 - Help").arg(title));
}

void HelpWindow::bringUp()
{
    show();
    raise();
    activateWindow();
    m_browser->setFocus();
}
