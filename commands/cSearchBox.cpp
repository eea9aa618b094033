#include "cSearchBox.h"

#include "CommandConstants.h"
#include "cSearchEditLine.h"

#include <cClickableLabel.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>

using namespace CommandConstants;

namespace {

// The two differ in the colour alone. The last brace closes nothing; the parser of style sheets passes over
// it.
const QLatin1String IdleStyle(
    "                            QLineEdit {"
    "                            color: #606060;"
    "                            border-image: url(MainApp:/Resources/images/text_field.png) 7 7 7 7;"
    "                            border-top: 7px transparent;"
    "                            border-bottom: 7px transparent;"
    "                            border-right: 7px transparent;"
    "                            border-left: 7px transparent;"
    "                            }"
    "            }");
const QLatin1String ActiveStyle(
    "                            QLineEdit {"
    "                            color: black;"
    "                            border-image: url(MainApp:/Resources/images/text_field.png) 7 7 7 7;"
    "                            border-top: 7px transparent;"
    "                            border-bottom: 7px transparent;"
    "                            border-right: 7px transparent;"
    "                            border-left: 7px transparent;"
    "                            }"
    "            }");

} // namespace

cSearchBox::cSearchBox(int width, int height, QWidget* parent)
    : QFrame(parent)
{
    setAutoFillBackground(true);
    setFixedSize(width, height);
    setFocusPolicy(Qt::ClickFocus);
    auto* layout = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(SearchSpacing);
    setStyleSheet(IdleStyle);
    createEdit();
    connectEdit();
    createDecorations();
    layout->addWidget(m_edit);
    setLayout(layout);
}

void cSearchBox::setForwarding(QWidget* target, const QSet<Qt::Key>& keys)
{
    m_edit->setForwarding(target, keys);
}

void cSearchBox::onTextEdited(const QString& text)
{
    setStyleSheet(ActiveStyle);
    m_edit->setInitialStatus(false);
    m_clearButton->setVisible(!text.isEmpty());
}

void cSearchBox::onEditingFinished()
{
    if (!m_edit->text().isEmpty())
        return;
    setStyleSheet(IdleStyle);
    m_edit->setText(tr("Search"));
    m_edit->setInitialStatus(true);
}

void cSearchBox::onClear()
{
    m_edit->clear();
    m_clearButton->hide();
    Q_EMIT textEdited(QString());
}

void cSearchBox::createEdit()
{
    m_edit = new cSearchEditLine(this);
    m_edit->setContextMenuPolicy(Qt::NoContextMenu);
    m_edit->setTextMargins(SearchTextMargins);
    m_edit->setText(tr("Search"));
}

void cSearchBox::connectEdit()
{
    connect(m_edit, SIGNAL(textEdited(const QString&)), this, SIGNAL(textEdited(const QString&)));
    connect(m_edit, SIGNAL(textEdited(const QString&)), this, SLOT(onTextEdited(const QString&)));
    connect(m_edit, SIGNAL(focusInIntialStatus()), this, SLOT(onClear()));
    connect(m_edit, SIGNAL(editingFinished()), this, SLOT(onEditingFinished()));
}

void cSearchBox::createDecorations()
{
    auto* magnifier = new QLabel(m_edit);
    magnifier->setPixmap(QPixmap(QStringLiteral("MacroBindingView:/Resources/images/search_icon.png")));
    magnifier->setGeometry(SearchIconX, (height() - SearchIconSize) / 2, SearchIconSize, SearchIconSize);

    m_clearButton = new cClickableLabel(
        QPixmap(QStringLiteral("MacroBindingView:/Resources/images/btn_clear_field_normal.png")), m_edit);
    m_clearButton->setPressedPixmap(
        QPixmap(QStringLiteral("MacroBindingView:/Resources/images/btn_clear_field_pressed.png")));
    m_clearButton->setGeometry(
        width() - ClearButtonInset, (height() - ClearButtonSize) / 2, ClearButtonSize, ClearButtonSize);
    m_clearButton->hide();
    connect(m_clearButton, SIGNAL(clicked()), this, SLOT(onClear()));
}
