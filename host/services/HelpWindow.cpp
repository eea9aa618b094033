#include "HelpWindow.h"

#include "HelpBrowser.h"
#include "HelpCollection.h"

#include <QHBoxLayout>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <QVariant>
#include <QVBoxLayout>

namespace {

constexpr QSize InitialSize(940, 640);
constexpr int SideWidth = 260;

/// Colours of the pages, which bring none of their own.
const char* const PageStyle = "body { color: #e4eaea; } h1, h2, h3 { color: #93c7c7; } a { color: #4fd0d0; }"
                              " th { color: #93c7c7; }";

} // namespace

HelpWindow::HelpWindow(HelpCollection& collection, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_collection(collection)
{
    setWindowTitle(tr("Help"));
    setWindowIcon(QIcon(QStringLiteral("MainApp:/Resources/images/VeltranoBlackLogo.png")));
    setProperty("uiType", QStringLiteral("HelpWindow"));
    resize(InitialSize);

    m_browser = new HelpBrowser(m_collection);
    m_browser->setAccessibleName(tr("Help page"));
    m_browser->document()->setDefaultStyleSheet(QLatin1String(PageStyle));
    m_browser->document()->setDocumentMargin(18);
    connect(m_browser, SIGNAL(sourceChanged(QUrl)), this, SLOT(onSourceChanged(QUrl)));

    m_contents = m_collection.engine().contentWidget();
    m_contents->setAccessibleName(tr("Contents"));
    m_contents->setHeaderHidden(true);
    connect(m_contents, SIGNAL(linkActivated(QUrl)), this, SLOT(onLinkActivated(QUrl)));
    connect(m_contents, SIGNAL(clicked(QModelIndex)), m_contents, SIGNAL(activated(QModelIndex)));
    connect(m_collection.engine().contentModel(), SIGNAL(contentsCreated()), this, SLOT(onContentsCreated()));

    m_tabs = new QTabWidget;
    m_tabs->setDocumentMode(true);
    m_tabs->tabBar()->setDrawBase(false);
    m_tabs->addTab(m_contents, tr("&Contents"));
    m_tabs->addTab(createSearch(), tr("&Search"));

    auto* const splitter = new QSplitter(Qt::Horizontal);
    splitter->addWidget(m_tabs);
    splitter->addWidget(m_browser);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({SideWidth, InitialSize.width() - SideWidth});

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(createBar());
    layout->addWidget(splitter, 1);
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), SIGNAL(activated()), this, SLOT(close()));
    connect(new QShortcut(QKeySequence(QKeySequence::Find), this), SIGNAL(activated()), this,
        SLOT(onSearchWanted()));
    onContentsCreated();
}

QWidget* HelpWindow::createBar()
{
    auto* const bar = new QWidget;
    auto* const layout = new QHBoxLayout(bar);
    layout->setContentsMargins(12, 10, 12, 10);
    layout->setSpacing(8);
    const auto addButton = [this, layout](const QString& text, const char* slot) {
        auto* const button = new QPushButton(text);
        button->setEnabled(false);
        layout->addWidget(button);
        connect(button, SIGNAL(clicked()), m_browser, slot);
        return button;
    };
    QPushButton* const back = addButton(tr("&Back"), SLOT(backward()));
    QPushButton* const forward = addButton(tr("&Forward"), SLOT(forward()));
    layout->addStretch(1);
    connect(m_browser, SIGNAL(backwardAvailable(bool)), back, SLOT(setEnabled(bool)));
    connect(m_browser, SIGNAL(forwardAvailable(bool)), forward, SLOT(setEnabled(bool)));
    return bar;
}

QWidget* HelpWindow::createSearch()
{
    auto* const search = new QWidget;
    auto* const layout = new QVBoxLayout(search);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(8);
    m_words = new QLineEdit;
    m_words->setAccessibleName(tr("Words to look for"));
    m_words->setPlaceholderText(tr("Words to look for"));
    m_words->setClearButtonEnabled(true);
    m_hits = new QListWidget;
    m_hits->setAccessibleName(tr("Pages found"));
    m_noHits = new QLabel(tr("No page has these words."));
    m_noHits->setProperty("uiType", QStringLiteral("QuietText"));
    m_noHits->hide();
    layout->addWidget(m_words);
    layout->addWidget(m_noHits);
    layout->addWidget(m_hits, 1);
    connect(m_words, SIGNAL(textChanged(QString)), this, SLOT(onSearchChanged(QString)));
    connect(m_hits, SIGNAL(itemClicked(QListWidgetItem*)), this, SLOT(onHitChosen(QListWidgetItem*)));
    connect(m_hits, SIGNAL(itemActivated(QListWidgetItem*)), this, SLOT(onHitChosen(QListWidgetItem*)));
    connect(&m_collection, SIGNAL(searchFinished()), this, SLOT(onSearchFinished()));
    return search;
}

void HelpWindow::showPage(const QUrl& address)
{
    m_browser->setFolder(QString());
    m_browser->setSource(address);
    bringUp();
}

void HelpWindow::showFile(const QString& path, const QString& folder)
{
    m_browser->setFolder(folder);
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

QUrl HelpWindow::page() const
{
    return m_browser->source().isLocalFile() ? QUrl() : m_browser->source();
}

void HelpWindow::onSourceChanged(const QUrl& address)
{
    // The browser itself still names the page before.
    const QString title = m_browser->documentTitle();
    setWindowTitle(title.isEmpty() ? tr("Help") : tr("%1 - Help").arg(title));
    markPage(address);
}

void HelpWindow::onLinkActivated(const QUrl& address)
{
    m_browser->setSource(address);
}

void HelpWindow::onContentsCreated()
{
    m_contents->expandAll();
    markPage(page());
}

void HelpWindow::markPage(const QUrl& address)
{
    const QModelIndex place = m_contents->indexOf(address);
    if (place.isValid())
        m_contents->setCurrentIndex(place);
    else
        m_contents->clearSelection();
}

void HelpWindow::onSearchWanted()
{
    m_tabs->setCurrentIndex(1);
    m_words->setFocus();
    m_words->selectAll();
}

void HelpWindow::onSearchChanged(const QString& words)
{
    if (words.trimmed().isEmpty()) {
        m_hits->clear();
        m_noHits->hide();
    }
    m_collection.search(words);
}

void HelpWindow::onSearchFinished()
{
    m_hits->clear();
    if (m_words->text().trimmed().isEmpty())
        return;
    const QList<HelpCollection::Hit> hits = m_collection.hits();
    for (const HelpCollection::Hit& hit : hits) {
        auto* const item = new QListWidgetItem(hit.title, m_hits);
        item->setData(Qt::UserRole, hit.address);
    }
    m_noHits->setVisible(hits.isEmpty());
}

void HelpWindow::onHitChosen(QListWidgetItem* item)
{
    m_browser->setSource(item->data(Qt::UserRole).toUrl());
}

void HelpWindow::bringUp()
{
    show();
    raise();
    activateWindow();
    m_browser->setFocus();
}
