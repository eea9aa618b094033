#include "cMacroList.h"

#include "cMacroItem.h"
#include "CommandConstants.h"
#include "RowLists.h"

#include <cEventHelpers.h>
#include <cMacroBindingView.h>
#include <cMacroTypeMgr.h>
#include <cProfileMgr.h>
#include <EventNames.h>

#include <QPainter>
#include <QScrollBar>

using namespace CommandConstants;

cMacroList::cMacroList(QWidget* parent)
    : cRowList(parent)
{
    RowLists::setUp(*this);
    setVerticalScrollMode(ScrollPerPixel);
    setSpacing(ListSpacing);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    verticalScrollBar()->setContextMenuPolicy(Qt::NoContextMenu);
    setFixedSize(ListSize);
    EventHelpers::subscribe(EventSources::Profiler, this);
    EventHelpers::subscribe(EventSources::ProfileMgr, this);
    connect(this, SIGNAL(itemSelectionChanged()), this, SLOT(macroItemSelectionChanged()));
    m_idleTimer.setInterval(0);
    connect(&m_idleTimer, SIGNAL(timeout()), this, SLOT(onIdleTimeout()));
}

cMacroList::~cMacroList()
{
    stopPopulation();
    RowLists::deleteRowWidgets(*this);
    clear();
    EventHelpers::unsubscribe(EventSources::Profiler, this);
    EventHelpers::unsubscribe(EventSources::ProfileMgr, this);
}

void cMacroList::setSortMode(int mode)
{
    m_sortMode = mode;
    RowLists::setSortMode(*this, mode);
}

void cMacroList::macroItemSelectionChanged()
{
    for (int i = 0; i < count(); ++i) {
        if (auto* row = RowLists::rowAt<cMacroItem>(*this, i)) {
            row->setRowSelected(false);
            Q_EMIT MacroUnSelected(row->macro());
        }
    }
    const QList<QListWidgetItem*> selected = selectedItems();
    for (const QListWidgetItem* item : selected) {
        if (cMacroItem* row = rowOf(item)) {
            row->setRowSelected(true);
            Q_EMIT MacroSelected(row->macro());
        }
    }
}

void cMacroList::onIdleTimeout()
{
    if (m_fillIndex < m_macros.size())
        addMacroRow(qAsConst(m_macros)[int(m_fillIndex)]);
    ++m_fillIndex;
    if (m_fillIndex >= m_macros.size())
        stopPopulation();
}

void cMacroList::onSearch(const QString& name)
{
    m_searchText = name;
    m_searchActive = !name.isEmpty();
    m_searchHits.clear();
    if (m_searchActive) {
        const QList<int> hits = RowLists::findHits(*this, name);
        showOnlyRows(hits);
        for (const int row : hits)
            m_searchHits.append(item(row));
        if (!m_searchHits.isEmpty())
            scrollToItem(m_searchHits.constFirst(), PositionAtCenter);
    } else {
        showAllRows();
    }
    viewport()->update();
}

void cMacroList::paintEvent(QPaintEvent*)
{
    if (!m_searchActive || !m_searchHits.isEmpty())
        return;
    QPainter painter(viewport());
    RowLists::setNoResultsLook(painter);
    painter.drawText(rect(), Qt::AlignCenter, tr("No Results"));
}

void cMacroList::populate()
{
    stopPopulation();
    m_fillIndex = 0;
    RowLists::deleteRowWidgets(*this);
    clear();
    m_searchHits.clear();
    m_profileID = cMacroBindingView::instance()->getProfileId();
    m_macros = cProfileMgr().macros(m_profileID);
    if (!m_macros.isArray() || m_macros.size() == 0)
        return;
    m_idleTimer.start();
    Q_EMIT populating();
}

void cMacroList::stopPopulation()
{
    m_fillIndex = 0;
    m_idleTimer.stop();
    Q_EMIT populated();
}

void cMacroList::addMacroRow(const cJsonValue& macro)
{
    const QString typeId = macro["namespace"].toString();
    const cMacroTypePtr type = cMacroTypeMgr().getMacroTypeByID(typeId);
    if (!type || type->isPrivate() || macro["hidden"].toBool())
        return;
    auto* row = new cMacroItem(macro, this);
    row->installEventFilter(this);
    connect(row, SIGNAL(macroDoubleClicked(cJsonValue)), this, SLOT(macroEditIconClicked(cJsonValue)));
    // The menu opens when the click has been handled.
    connect(row, SIGNAL(macroContextMenuIconClicked(QPoint)), this,
        SLOT(macroItemContextMenuIconClicked(QPoint)), Qt::QueuedConnection);
    connect(row, SIGNAL(dragStart(cJsonValue)), this, SLOT(MacroStartDrag(cJsonValue)));
    connect(row, SIGNAL(hoverIn()), this, SIGNAL(hoverIn()));
    connect(row, SIGNAL(hoverOut()), this, SIGNAL(hoverOut()));

    const QString name = macro["display_name"].toString();
    auto* item = new cListWidgetItem(name, m_sortMode);
    item->setNamespace(typeId);
    item->setSizeHint(row->size());
    const bool searching = !m_searchText.isEmpty();
    const bool hit = searching && RowLists::matchesSearch(name, m_searchText);
    addRow(item, row, searching && !hit);
    connect(row, SIGNAL(nameChanged(QString)), item, SLOT(onNameChanged(QString)));
    if (hit)
        m_searchHits.append(item);
}

cMacroItem* cMacroList::rowOf(const QListWidgetItem* item) const
{
    return qobject_cast<cMacroItem*>(rowWidget(item));
}

int cMacroList::rowByMacroId(const QString& macroID) const
{
    return RowLists::findRow(*this, &cMacroItem::macroId, macroID);
}

cMacroItem* cMacroList::itemByMacroId(const QString& macroID) const
{
    return RowLists::rowAt<cMacroItem>(*this, rowByMacroId(macroID));
}
