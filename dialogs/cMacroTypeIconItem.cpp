#include "cMacroTypeIconItem.h"

#include "DialogConstants.h"

#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QStringList>
#include <QVariant>
#include <QVBoxLayout>

#include <algorithm>

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

/// The text with places to break in the words that are wider than a line.
QString breakable(const QString& text, const QFontMetrics& metrics, int width)
{
    QStringList words = text.split(QLatin1Char(' '));
    for (QString& word : words) {
        if (metrics.horizontalAdvance(word) <= width)
            continue;
        for (int i = word.size() - 1; i > 0; --i) {
            if (!word.at(i).isLowSurrogate() && !word.at(i).isMark())
                word.insert(i, QChar(0x200b));
        }
    }
    return words.join(QLatin1Char(' '));
}

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
    ensurePolished();
}

void cMacroTypeIconItem::setHighlighted(bool isHighlighted)
{
    m_highlighted = isHighlighted;
    setStyleSheet(isHighlighted ? HighlightedStyle : PlainStyle);
    m_textLabel->setStyleSheet(isHighlighted ? HighlightedTextStyle : PlainTextStyle);
}

bool cMacroTypeIconItem::event(QEvent* event)
{
    const bool isHandled = QFrame::event(event);
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange
        || event->type() == QEvent::FontChange)
        fitText();
    return isHandled;
}

void cMacroTypeIconItem::fitText()
{
    m_textLabel->ensurePolished();
    // The highlight has a frame of its own; the name is not to be broken anew with it.
    if (!m_highlighted)
        m_frameWidth = contentsMargins().left() + contentsMargins().right();
    const QFontMetrics metrics = m_textLabel->fontMetrics();
    const int widest = IconItemMaxWidth - m_frameWidth;
    m_textLabel->setText(breakable(m_displayName, metrics, widest));
    // The advance is rounded, and a pixel too little breaks the line.
    const int width = std::min(metrics.horizontalAdvance(m_displayName) + 1, widest);
    m_textLabel->setFixedSize(width, std::max(m_textLabel->heightForWidth(width), 0));
}

void cMacroTypeIconItem::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        emit clicked(m_macroTypeID);
}
