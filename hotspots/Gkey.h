#pragma once

#include <QGraphicsPathItem>
#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QString>
#include <QStringList>

class cGraphicsButton;
class cMacroBindingView;
class cProfileMgr;
class QMenu;
class QMimeData;
class QPixmap;
struct StickCommand;

/// The invisible, shaped hotspot over one programmable control on the device's picture.
///
/// It decides what a user can do to a key: clicks, the context menu, which drags may land on it, and what is
/// reported of them. It changes no assignment itself, but for the stick's two commands; the view acts on its
/// signals and tells it by setMacro() what it holds. The path is its shape and is never painted: what the
/// user sees are two children, a glow under the pointer or a welcome drag and a small button that opens the
/// menu. The view installs the key as scene event filter on the key's label, so that the two are one target.
///
/// The view makes one key for each control, fills it once and keeps it until the scene is taken down.
/// setPolygon() or the path, setShapeKind(), setGlowPixmap() and setContextButtonPos() come before
/// setKeyRect(), which places the children by them. Drags, menus and the command editor run event loops of
/// their own; the host may take the key down meanwhile.
///
/// All lengths are pixels of the canvas's scene, in the coordinates of the parent, in which the key stands at
/// the origin.
class Gkey : public QObject, public QGraphicsPathItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_DISABLE_COPY(Gkey)

public:
    /// How the manifest describes the control's shape.
    enum ShapeKind { PolygonShape = 0, PixmapShape = 1 };

    /// The view is asked for the current profile, device category and mode; it has to outlive the key.
    explicit Gkey(cMacroBindingView* view, QGraphicsItem* parent = nullptr);

    /// The name of the control, such as "G7".
    QString contextID() const { return m_contextID; }
    void setContextID(const QString& contextID);

    /// The command that the manifest names for the control, and what it says about it.
    void setGenericInfo(
        const QString& type, const QString& name, bool required, bool hidden, bool cannotBeUnassigned);
    QString genericType() const { return m_genericType; }
    QString genericName() const { return m_genericName; }
    bool isGenericHidden() const { return m_genericHidden; }
    bool isGenericRequired() const { return m_genericRequired; }
    bool cannotBeUnassignedFlag() const { return m_cannotBeUnassigned; }

    /// The corners of a key of PolygonShape. The path is set by itself.
    void setPolygon(const QPolygonF& polygon);
    /// A ShapeKind; whatever is not PolygonShape is taken as PixmapShape.
    int shapeKind() const { return m_shapeKind; }
    void setShapeKind(int kind);
    /// Shown in place of the glow that all keys share.
    void setGlowPixmap(const QPixmap& pixmap);
    /// Where the top left corner of the context button stands. A -1 in either leaves the place to the key.
    void setContextButtonPos(int x, int y);
    /// Stores the key's rectangle and places the children: the glow's centre on the middle of the rectangle,
    /// the context button at its explicit place or inside the lower right corner of the shape.
    void setKeyRect(int x, int y, int width, int height);
    QRectF keyRect() const { return QRectF(m_rectX, m_rectY, m_rectWidth, m_rectHeight); }

    /// Where the view puts the label's text area, and its width at rest and while grown.
    void setLabelRect(int x, int y, int minWidth, int maxWidth);
    bool hasLabelRect() const { return m_hasLabelRect; }
    QPoint labelPos() const { return {m_labelX, m_labelY}; }
    int labelMinWidth() const { return m_labelMinWidth; }
    int labelMaxWidth() const { return m_labelMaxWidth; }
    /// The ends of a line from the label to the key, as the manifest has them.
    void setConnectLine(const QPointF& p1, const QPointF& p2);
    bool hasConnectLine() const { return m_hasConnectLine; }
    QPointF connectLineP1() const { return m_lineP1; }
    QPointF connectLineP2() const { return m_lineP2; }

    /// Stored for the owner's use.
    QStringList controlTypes() const { return m_controlTypes; }
    void setControlTypes(const QStringList& types);

    /// The uid of the command on the key; empty for none.
    QString macroID() const { return m_macroID; }
    /// Asks the host whether the command is a hidden one; one that the host does not know is not.
    void setMacro(const QString& macroID);
    /// A hidden command can't be dragged or replaced by the generic one.
    bool isMacroHidden() const { return m_macroHidden; }

    /// Draws nothing: the path is only the shape.
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

Q_SIGNALS:
    /// Any press of the left button.
    void clicked(const QString& id);
    /// The user is to be told something; the point is in the coordinates of the scene.
    void showTooltip(const QPointF& pt, const QString& tip);
    /// The command is to be put on the key.
    void macroDropped(const QString& macroID, const QString& contextID);
    void edit(const QString& contextID);
    void useGeneric(const QString& contextID);
    /// Once for each key to be emptied, which for a stick command are all that it occupies.
    void unassign(const QString& contextID);
    /// The key is to be emptied because what it held was moved away or is replaced.
    void macroMoved(const QString& contextID);
    /// Comes before a drag of the assignment, and assignmentEndDrag() after it, whatever its result.
    void assignmentStartDrag(const QString& macroID);
    void assignmentEndDrag();
    // For the label, which grows while the pointer is on the key.
    void hoverIn();
    void hoverOut();
    void useDefault(const QString& contextID);

public Q_SLOTS:
    void onEditMacro();
    void onUseDefault();
    void onUseGeneric();
    void onUnassign();
    /// Put a stick command on the keys that it occupies. These two ask the host themselves.
    void onAssignMouse();
    void onAssignJoystick();
    void onUnassignMouse();
    void onUnassignJoystick();
    /// The point is in the coordinates of the host's main window.
    void onClickedContextButton(const QPoint& point);
    /// Opens the command editor for a new command, which then lands on this key.
    void onAddNewMacro();
    void onMacroEditorClosed(const QString& macroID);

protected:
    /// The watched item is the key's label; its releases are not for the key.
    bool sceneEventFilter(QGraphicsItem* watched, QEvent* event) override;
    void contextMenuEvent(QGraphicsSceneContextMenuEvent* event) override;
    void dragEnterEvent(QGraphicsSceneDragDropEvent* event) override;
    void dragLeaveEvent(QGraphicsSceneDragDropEvent* event) override;
    void dropEvent(QGraphicsSceneDragDropEvent* event) override;
    void hoverEnterEvent(QGraphicsSceneHoverEvent* event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent* event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;
    void mouseDoubleClickEvent(QGraphicsSceneMouseEvent* event) override;

private:
    void setChildrenVisible(bool visible);
    void placeContextButton();
    /// The corner into which the context button goes if nobody gave it a place.
    QPointF lowerRightCorner() const;

    /// Whether the command on the key can be dragged away, apart from which command it is.
    bool holdsVisibleMacro() const { return !m_macroID.isEmpty() && !m_macroHidden; }
    bool wantsDrag(const QMimeData& data) const;
    void takeDrop(const QString& macroID);
    void dragAssignment(QWidget* source);

    void showContextMenu(const QPoint& globalPos);
    void fillContextMenu(QMenu& menu);
    void assignStick(const StickCommand& command, bool (cProfileMgr::*addMacro)(const QString&));
    void emitForStick(const StickCommand& command, void (Gkey::*signal)(const QString&));

    QString m_macroID;
    QString m_contextID;
    QString m_genericType;
    QString m_genericName;
    bool m_genericRequired = false;
    bool m_genericHidden = false;
    bool m_cannotBeUnassigned = false;
    bool m_macroHidden = false;
    int m_rectX = 0;
    int m_rectY = 0;
    int m_rectWidth = 0;
    int m_rectHeight = 0;
    int m_contextButtonX = -1;
    int m_contextButtonY = -1;
    bool m_hasLabelRect = false;
    int m_labelX = 0;
    int m_labelY = 0;
    int m_labelMinWidth = 0;
    int m_labelMaxWidth = 0;
    bool m_hasConnectLine = false;
    QPointF m_lineP1;
    QPointF m_lineP2;
    // Children, which go with the key.
    QGraphicsPixmapItem* m_targetGlow = nullptr;
    cGraphicsButton* m_contextButton = nullptr;
    QStringList m_controlTypes;
    cMacroBindingView* const m_view;
    /// Where the left button went down, in the coordinates of the event.
    QPointF m_pressPos;
    /// There was a press on a visible command. Never cleared: moves arrive only during a press.
    bool m_pressed = false;
    // A welcome drag is over the label, over the key itself.
    bool m_dragOverLabel = false;
    bool m_dragOverKey = false;
    /// The drag event that is being handled came through the filter.
    bool m_eventFromLabel = false;
    int m_shapeKind = PolygonShape;
    QPolygonF m_polygon;
};
