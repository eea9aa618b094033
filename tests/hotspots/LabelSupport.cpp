#include "LabelSupport.h"

#include <TestPictures.h>

#include <QFontMetrics>
#include <QFontMetricsF>
#include <QPainter>

#include <array>

namespace {

constexpr std::array Looks {"normal", "normal_expanded", "selected", "static"};

struct Piece
{
    const char* name;
    int width;
    int height;
};
constexpr std::array Pieces {Piece {"topleft", 10, 10}, Piece {"topright", 10, 10}, Piece {"top", 6, 10},
    Piece {"left", 10, 5}, Piece {"bottomleft", 10, 10}, Piece {"bottomright", 10, 10},
    Piece {"bottom", 6, 10}, Piece {"right", 10, 5}, Piece {"center", 4, 3}};

} // namespace

LabelSupport::Label::Label(const QString& text, int collapsed, int expanded, bool isStatic)
    : MagnetTextItem("G1", isStatic, nullptr)
{
    setCollapsedWidth(collapsed);
    setExpandedMaxWidth(expanded);
    setText(text);
}

void LabelSupport::addBalloons(TestPictures& pictures)
{
    for (const char* look : Looks) {
        for (const Piece& piece : Pieces) {
            pictures.add(QString("balloon_%1_%2.png").arg(piece.name, look),
                filledPicture(piece.width, piece.height, colorOf(look, piece.name)));
        }
    }
}

QColor LabelSupport::colorOf(const QByteArray& look, const QByteArray& piece)
{
    for (int l = 0; l < int(Looks.size()); ++l) {
        for (int p = 0; p < int(Pieces.size()); ++p) {
            if (look == Looks.at(std::size_t(l)) && piece == Pieces.at(std::size_t(p)).name)
                return QColor(40 + 50 * l, 20 + 25 * p, 7);
        }
    }
    return QColor(Qt::black);
}

cScaledFont LabelSupport::labelFont()
{
    cScaledFont font("Arial", 8);
    font.setStyleStrategy(QFont::ForceOutline);
    font.setFixedPitch(true);
    return font;
}

QSize LabelSupport::naturalSize(const QString& text)
{
    return QFontMetrics(labelFont()).size(Qt::TextSingleLine, text);
}

int LabelSupport::linesIn(int height)
{
    return qRound(height / QFontMetricsF(labelFont()).lineSpacing());
}

int LabelSupport::half(int length)
{
    return length / 2;
}

QString LabelSupport::blank(int count)
{
    return QString(count, QChar(QChar::Nbsp));
}

QImage LabelSupport::drawn(MagnetTextItem& label, const QPen& pen)
{
    const QSize room(2 * Margin, 2 * Margin);
    QImage image(label.boundingRect().toAlignedRect().size() + room, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.translate(Margin, Margin);
    painter.setPen(pen);
    label.paint(&painter, nullptr, nullptr);
    return image;
}

QByteArray LabelSupport::lookOf(MagnetTextItem& label)
{
    const QColor corner = drawn(label).pixelColor(Margin, Margin);
    for (const char* look : Looks) {
        if (corner == colorOf(look, "topleft"))
            return look;
    }
    return "none";
}

QRect LabelSupport::textInk(MagnetTextItem& label)
{
    return inkExtent(drawn(label)).translated(-Margin, -Margin);
}
