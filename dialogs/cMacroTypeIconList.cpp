#include "cMacroTypeIconList.h"

#include "cMacroTypeIconItem.h"
#include "DialogConstants.h"

#include <cMacroTypeMgr.h>

#include <QKeyEvent>
#include <QPainter>
#include <QVariant>
#include <QVBoxLayout>

#include <algorithm>

using namespace DialogConstants;

namespace {

const QString ListStyle = QStringLiteral(
    "QWidget {background: transparent;}QFrame[uiType=\"MacroTypeIconList\"] {border-image: "
    "url(MainApp:/Resources/images/sprite_panel.png) 14 14 14 14;border-top: 14px transparent;"
    "border-bottom: 14px transparent;border-right: 14px transparent;border-left: 14px transparent}");

} // namespace

cMacroTypeIconList::cMacroTypeIconList(QWidget* parent)
    : QFrame(parent)
    , m_layout(new QVBoxLayout(this))
{
    setProperty("uiType", QStringLiteral("MacroTypeIconList"));
    setStyleSheet(ListStyle);
    setAccessibleName(tr("Command types"));
    // A click leaves the focus in the form.
    setFocusPolicy(Qt::TabFocus);
    m_layout->setContentsMargins(IconListMargin, IconListMargin, IconListMargin, IconListMargin);
    m_layout->setSpacing(IconListSpacing);
    const IMacroTypePtrList types = cMacroTypeMgr().getAllMacroTypes();
    for (const cMacroTypePtr& type : types) {
        if (!type || type->isPrivate())
            continue;
        auto* const item = new cMacroTypeIconItem(type->info(), this);
        connect(item, SIGNAL(clicked(QString)), this, SLOT(onMacroTypeItemClicked(QString)));
        m_items.append(item);
        m_layout->addWidget(item);
    }
    m_layout->addStretch(1);
}

void cMacroTypeIconList::setCurrentIndex(int index)
{
    if (index < 0 || index >= m_items.size() || index == m_currentIndex)
        return;
    for (int i = 0; i < m_items.size(); ++i)
        m_items[i]->setHighlighted(i == index);
    m_currentIndex = index;
    emit macroTypeSelected(index);
}

void cMacroTypeIconList::setCurrentMacroType(const QString& macroTypeID)
{
    for (int i = 0; i < m_items.size(); ++i) {
        if (m_items[i]->macroTypeID() == macroTypeID && i != m_currentIndex)
            setCurrentIndex(i);
    }
}

int cMacroTypeIconList::indexOf(const QString& macroTypeID) const
{
    const auto item = std::find_if(m_items.begin(), m_items.end(),
        [&](const cMacroTypeIconItem* each) { return each->macroTypeID() == macroTypeID; });
    return item == m_items.end() ? 0 : int(item - m_items.begin());
}

QSize cMacroTypeIconList::minimumSizeHint() const
{
    return {sizeHint().width(), QFrame::minimumSizeHint().height()};
}

void cMacroTypeIconList::onMacroTypeItemClicked(const QString& macroTypeID)
{
    for (int i = 0; i < m_items.size(); ++i) {
        const bool isMatch = m_items[i]->macroTypeID() == macroTypeID;
        m_items[i]->setHighlighted(isMatch);
        if (isMatch)
            emit macroTypeSelected(i);
    }
    update();
}

int cMacroTypeIconList::highlightedIndex() const
{
    const auto item = std::find_if(
        m_items.begin(), m_items.end(), [](const cMacroTypeIconItem* each) { return each->isHighlighted(); });
    return item == m_items.end() ? -1 : int(item - m_items.begin());
}

void cMacroTypeIconList::keyPressEvent(QKeyEvent* event)
{
    const int last = m_items.size() - 1;
    const int current = highlightedIndex();
    int next = 0;
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Left:
        next = std::max(current - 1, 0);
        break;
    case Qt::Key_Down:
    case Qt::Key_Right:
        next = std::min(current + 1, last);
        break;
    case Qt::Key_Home:
        break;
    case Qt::Key_End:
        next = last;
        break;
    default:
        QFrame::keyPressEvent(event);
        return;
    }
    if (next != current && next <= last)
        onMacroTypeItemClicked(m_items[next]->macroTypeID());
}

void cMacroTypeIconList::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    if (!hasFocus() || m_items.isEmpty())
        return;
    const QRect marked = m_items[std::max(highlightedIndex(), 0)]->geometry();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(IconFocusColor));
    // In the middle of the pixels, so that the line is one pixel wide.
    const QRectF frame = QRectF(marked).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawRoundedRect(
        frame.adjusted(-IconFocusDistance, -IconFocusDistance, IconFocusDistance, IconFocusDistance),
        IconFocusRadius, IconFocusRadius);
}
