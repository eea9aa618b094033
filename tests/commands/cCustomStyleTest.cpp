#include <cCustomStyle.h>
#include <TestCase.h>

#include <QImage>
#include <QPainter>
#include <QStyleOptionFocusRect>

namespace {

/// True if the style draws the element.
bool draws(QStyle::PrimitiveElement element)
{
    QImage image(20, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QImage empty = image;
    QStyleOptionFocusRect option;
    option.rect = image.rect().adjusted(2, 2, -2, -2);
    option.state = QStyle::State_Enabled | QStyle::State_KeyboardFocusChange;
    QPainter painter(&image);
    cCustomStyle().drawPrimitive(element, &option, &painter);
    painter.end();
    return image != empty;
}

} // namespace

class cCustomStyleTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void drawsNoFocusRectangle() { QVERIFY(!draws(QStyle::PE_FrameFocusRect)); }
    void drawsEverythingElse() { QVERIFY(draws(QStyle::PE_IndicatorArrowDown)); }
};

VELTRANO_TEST_MAIN(cCustomStyleTest)
#include "cCustomStyleTest.moc"
