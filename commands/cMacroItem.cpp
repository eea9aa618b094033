#include "cMacroItem.h"

#include "CommandConstants.h"

#include <cClickableLabel.h>
#include <cMacroBindingView.h>
#include <cMacroTypeMgr.h>
#include <cProfileMgr.h>
#include <PluginContext.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <QVBoxLayout>

using namespace CommandConstants;

namespace {

/// A label in one line, whose text ends in dots if it is longer than the label.
class cNameLabel : public QLabel
{
public:
    explicit cNameLabel(const QString& text)
        : QLabel(text)
    { }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
        style()->drawItemText(
            &painter, contentsRect(), int(alignment()), palette(), isEnabled(), shown, foregroundRole());
    }
};

QPixmap image(const char* path)
{
    return QPixmap(pluginResource(path));
}

/// The info record of the type that has the command's namespace; null if there is none.
cJsonValue typeInfo(const cJsonValue& macro)
{
    const IMacroTypePtrList types = cMacroTypeMgr().getAllMacroTypes();
    for (const cMacroTypePtr& type : types) {
        if (!type)
            continue;
        const cJsonValue info = type->info();
        if (info.contains("uid") && macro.contains("namespace")
            && info["uid"].toString() == macro["namespace"].toString())
            return info;
    }
    return cJsonValue();
}

} // namespace

cMacroItem::cMacroItem(const cJsonValue& macro, QWidget* parent)
    : cRowWidget(parent)
    , m_macro(macro)
{
    const cMacroBindingView* view = cMacroBindingView::instance();
    m_assigned = cProfileMgr().isMacroAssigned(
        view->getProfileId(), view->getDeviceCategory(), view->getControlIds(), macroId());
    m_layout = new QHBoxLayout;
    m_layout->setContentsMargins(RowMargins);
    setFixedSize(RowSize);
    setCursor(Qt::OpenHandCursor);
    createLabels();
    createContextIcon();
    m_layout->setStretch(StretchedColumn, 1);
    setLayout(m_layout);
    loadPictures();
    setToolTip(displayName());
}

QString cMacroItem::macroId() const
{
    return m_macro["uid"].toString();
}

void cMacroItem::setMacro(const cJsonValue& macro)
{
    m_macro = macro;
    const QString name = displayName();
    if (name != m_nameLabel->text()) {
        m_nameLabel->setText(name);
        setToolTip(name);
        const QPointer<cMacroItem> self(this);
        Q_EMIT nameChanged(name);
        if (!self)
            return;
    }
    showIcon(typeInfo(m_macro));
}

void cMacroItem::contextMenuIconClicked(const QPoint& point)
{
    Q_EMIT macroContextMenuIconClicked(point);
}

void cMacroItem::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier) {
        m_pressPoint = event->localPos();
        setCursor(Qt::ClosedHandCursor);
    }
    // The list selects.
    event->ignore();
}

void cMacroItem::mouseReleaseEvent(QMouseEvent* event)
{
    setCursor(Qt::OpenHandCursor);
    event->ignore();
}

void cMacroItem::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT macroDoubleClicked(m_macro);
}

void cMacroItem::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() != Qt::LeftButton)
        return;
    const QPointF way = event->localPos() - m_pressPoint;
    // What is dragged may be deleted meanwhile, this row too.
    if (way.manhattanLength() > QApplication::startDragDistance())
        Q_EMIT dragStart(m_macro);
}

void cMacroItem::enterEvent(QEvent*)
{
    setCursor(Qt::OpenHandCursor);
    m_hover = true;
    Q_EMIT hoverIn();
    m_contextIcon->show();
    update();
}

void cMacroItem::leaveEvent(QEvent*)
{
    setCursor(Qt::ArrowCursor);
    m_hover = false;
    Q_EMIT hoverOut();
    m_contextIcon->hide();
    update();
}

void cMacroItem::paintEvent(QPaintEvent*)
{
    QPainter(this).drawPixmap(0, 0, picture());
}

QString cMacroItem::displayName() const
{
    return m_macro["display_name"].toString();
}

void cMacroItem::createLabels()
{
    showIcon(typeInfo(m_macro));
    m_nameLabel = new cNameLabel(displayName());
    // Names are what people typed, and a "<b>" of theirs is no markup.
    m_nameLabel->setTextFormat(Qt::PlainText);
    m_nameLabel->setFixedWidth(NameWidth);
    m_layout->addWidget(m_nameLabel);
    m_layout->addStretch(0);
}

void cMacroItem::createContextIcon()
{
    m_contextIcon = new cClickableLabel(image("Resources/images/pointer_left-click.png"), this);
    connect(m_contextIcon, SIGNAL(clicked(const QPoint&)), this, SLOT(contextMenuIconClicked(const QPoint&)));
    auto* bottom = new QVBoxLayout;
    bottom->addStretch(0);
    bottom->addWidget(m_contextIcon);
    m_layout->addLayout(bottom);
    m_contextIcon->hide();
}

void cMacroItem::loadPictures()
{
    m_normal = image("Resources/images/command_normal.png");
    m_normalAssigned = image("Resources/images/command_normal_assigned.png");
    m_normalSelected = image("Resources/images/command_normal_selected.png");
    m_normalSelectedAssigned = image("Resources/images/command_normal_selected_assigned.png");
    m_hoverNormal = image("Resources/images/command_hover.png");
    m_hoverAssigned = image("Resources/images/command_hover_assigned.png");
    m_hoverSelected = image("Resources/images/command_hover_selected.png");
    m_hoverSelectedAssigned = image("Resources/images/command_hover_selected_assigned.png");
}

void cMacroItem::showIcon(const cJsonValue& info)
{
    if (info.isNull())
        return;
    if (!m_iconLabel) {
        m_iconLabel = new QLabel;
        m_layout->insertWidget(0, m_iconLabel);
    }
    m_iconLabel->setPixmap(QPixmap(info["iconpath"].toString()));
}

const QPixmap& cMacroItem::picture() const
{
    if (m_hover) {
        if (m_selected)
            return m_assigned ? m_hoverSelectedAssigned : m_hoverSelected;
        return m_assigned ? m_hoverAssigned : m_hoverNormal;
    }
    if (m_selected)
        return m_assigned ? m_normalSelectedAssigned : m_normalSelected;
    return m_assigned ? m_normalAssigned : m_normal;
}
