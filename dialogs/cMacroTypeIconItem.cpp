#include "cMacroTypeIconItem.h"

#include "DialogConstants.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QVariant>
#include <QVBoxLayout>

using namespace DialogConstants;

namespace {

const QString HighlightedStyle =
    QStringLiteral("QFrame[uiType=\"MacroTypeIcon\"] { border-image: "
                   "url(MacroBindingView:/Resources/images/command_editor_highlight.png) 5 5 5 5; "
                   "border-top: 5px transparent; border-bottom: 5px transparent; "
                   "border-right: 5px transparent; border-left: 5px transparent;} ");
const QString PlainStyle =
    QStringLiteral("QFrame[uiType=\"MacroTypeIcon\"] { border: 5px solid transparent; }");
const QString HighlightedTextStyle = QStringLiteral("QLabel { color: white; }");
const QString PlainTextStyle = QStringLiteral("QLabel { color: #999999; }");

} // namespace

cMacroTypeIconItem::cMacroTypeIconItem(const cJsonValue& info, QWidget* parent)
    : QFrame(parent)
    , m_macroTypeID(info["uid"].toString())
    , m_displayName(info["displayname"].toString())
    , m_layout(new QVBoxLayout(this))
    , m_iconLabel(new QLabel)
    , m_textLabel(new QLabel(m_displayName))
{
    setProperty("uiType", QStringLiteral("MacroTypeIcon"));
    setContentsMargins(0, 0, 0, 0);
    setMinimumWidth(IconItemMinWidth);
    setMaximumWidth(IconItemMaxWidth);
    setAccessibleName(m_displayName);

    m_iconLabel->setPixmap(QPixmap(info["iconpath"].toString()));
    m_iconLabel->setAlignment(Qt::AlignCenter);
    m_textLabel->setTextFormat(Qt::PlainText);
    m_textLabel->setWordWrap(true);
    m_textLabel->setAlignment(Qt::AlignCenter);

    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(IconItemSpacing);
    m_layout->addWidget(m_iconLabel, 0, Qt::AlignCenter);
    m_layout->addWidget(m_textLabel, 0, Qt::AlignCenter);
    // The border is there from the start, so that nothing moves when the highlight comes.
    setHighlighted(false);
}

void cMacroTypeIconItem::setHighlighted(bool isHighlighted)
{
    m_highlighted = isHighlighted;
    setStyleSheet(isHighlighted ? HighlightedStyle : PlainStyle);
    m_textLabel->setStyleSheet(isHighlighted ? HighlightedTextStyle : PlainTextStyle);
}

void cMacroTypeIconItem::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        emit clicked(m_macroTypeID);
}
