#pragma once

#include <NineSlice.h>

#include <QGraphicsItem>
#include <QObject>
#include <QPixmap>
#include <QPointF>
#include <QString>

#include <memory>

class cScaledFont;

/// The balloon with a command's name beside a key that holds the command.
///
/// It has no will of its own: the key is installed as its scene event filter and gets all of its mouse and
/// drag events, so that the two are one target, and the key tells it by the two slots when the pointer comes
/// and goes. While the pointer is there, a label whose text is wider than its place grows to the right and
/// downwards. The view makes, keeps and deletes the labels.
class MagnetTextItem : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_INTERFACES(QGraphicsItem)
    Q_DISABLE_COPY(MagnetTextItem)

public:
    /// `isStatic` is for a command that the user can't move: such a label keeps a look of its own.
    MagnetTextItem(const QString& contextID, bool isStatic, QGraphicsItem* parent);
    ~MagnetTextItem() override;

    /// Widest text area while grown, from the next layout on.
    void setExpandedMaxWidth(int width);
    /// Width of the text area at rest, from the next layout on. The height follows from the text.
    void setCollapsedWidth(int width);
    /// A line under the balloon, in the label's own coordinates. It may leave the bounding rectangle.
    void setConnectLine(const QPointF& start, const QPointF& end);
    /// Where the middle of the text area at rest stands, in the parent's coordinates.
    void setCenter(qreal x, qreal y);

    /// The uid of the command; empty for none.
    QString macroID() const { return m_macroID; }
    void setMacroID(const QString& macroID);
    QString contextID() const { return m_contextID; }

    QString text() const { return m_text; }
    /// Lays the text out at rest and centres it again. A label without a text draws nothing.
    void setText(const QString& text);

    /// Whether the command is selected in the command list.
    void setBalloonSelected(bool selected);

    QRectF boundingRect() const override;
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

public Q_SLOTS:
    void onGkeyHoverIn();
    /// The grown label keeps its top left corner, and so does the one that shrinks back.
    void onGkeyHoverOut();

private:
    void loadBalloons();
    void layoutText(bool collapsed);
    const NineSlice& balloon() const;

    /// All labels share one font, made with the first of them and gone with the last.
    static std::unique_ptr<cScaledFont> s_font;
    static int s_instances;

    const bool m_isStatic;
    QString m_text;
    QPixmap m_textPixmap;
    QPixmap m_staticTextPixmap;
    bool m_selected = false;
    /// The last layout found the text wider than the width that it had.
    bool m_overflowing = false;
    bool m_expanded = false;
    int m_textFlags = Qt::AlignCenter;
    int m_expandedMaxWidth = 0;
    int m_collapsedWidth = 0;
    /// The present text area.
    int m_width = 0;
    int m_height = 0;
    QPointF m_center;
    bool m_hasConnectLine = false;
    QPointF m_lineStart;
    QPointF m_lineEnd;
    qreal m_restingZ = 0.0;
    QString m_macroID;
    const QString m_contextID;
    NineSlice m_normalBalloon;
    NineSlice m_expandedBalloon;
    NineSlice m_selectedBalloon;
    NineSlice m_staticBalloon;
};
