#pragma once

#include <cScaledFont.h>
#include <MagnetTextItem.h>

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QPen>
#include <QRect>
#include <QSize>
#include <QString>

class TestPictures;

/// What the tests of the label share.
namespace LabelSupport {

/// How far the pictures of drawn() reach beyond the item.
inline constexpr int Margin = 8;

/// A label as the view makes it.
class Label : public MagnetTextItem
{
public:
    explicit Label(const QString& text, int collapsed = 60, int expanded = 150, bool isStatic = false);

    int textWidth() const { return int(boundingRect().width()) - 10; }
    int textHeight() const { return int(boundingRect().height()) - 6; }
};

/// Adds the 36 pictures of a balloon, with edges and centres of lengths that have to be stretched.
void addBalloons(TestPictures& pictures);
/// The colour of one of these, which no other has; black if there is no such piece.
QColor colorOf(const QByteArray& look, const QByteArray& piece);

/// The font of the labels.
cScaledFont labelFont();
/// The size of a text in one line.
QSize naturalSize(const QString& text);
/// Lines of text that have room in that height. Their distance is no whole number of pixels.
int linesIn(int height);
/// What a label takes for half of a length.
int half(int length);
/// A text that shows nothing, but is as wide as it says.
QString blank(int count);

/// The item on a transparent picture, its origin at (Margin, Margin).
QImage drawn(MagnetTextItem& label, const QPen& pen = QPen(Qt::black));
/// The look whose top left corner the label shows; the corner lies under no text.
QByteArray lookOf(MagnetTextItem& label);
/// Where a label that is drawn without pictures has ink, in the item's coordinates.
QRect textInk(MagnetTextItem& label);

} // namespace LabelSupport
