#include <TestCase.h>

#include <QColor>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QSet>
#include <QSize>
#include <QStringList>
#include <QVector>

#include <algorithm>
#include <cmath>

namespace {

const QString Source = QStringLiteral(VELTRANO_SOURCE_DIR);
const QString PlugIn = Source + QStringLiteral("/Resources");
const QString Host = Source + QStringLiteral("/host/resources");
const QColor Canvas(0x0b, 0x0f, 0x10);

const QStringList Looks {"normal", "normal_expanded", "selected", "static"};
const QStringList Rows {"normal", "normal_assigned", "normal_selected", "normal_selected_assigned", "hover",
    "hover_assigned", "hover_selected", "hover_selected_assigned"};

// What the drawing code relies on.
const int BalloonCorner = 10;
const int PanelBorder = 21;
const int PanelEdge = 12;
const int SyncFrame = 29;
const int SearchFrame = 64;

/// A picture of the plug-in or of the host; a width or height of 0 leaves the choice to the drawing.
class Picture
{
public:
    QString folder;
    QString name;
    QSize size;
};

QVector<Picture> inventory()
{
    QVector<Picture> pictures;
    const auto add = [&](const QStringList& names, int width, int height) {
        for (const QString& name : names)
            pictures << Picture {PlugIn, name, QSize(width, height)};
    };
    for (const QString& look : Looks) {
        for (const char* corner : {"topleft", "topright", "bottomleft", "bottomright"})
            add({QString("balloon_%1_%2").arg(corner, look)}, BalloonCorner, BalloonCorner);
        add({"balloon_top_" + look, "balloon_bottom_" + look}, 0, BalloonCorner);
        add({"balloon_left_" + look, "balloon_right_" + look}, BalloonCorner, 0);
        add({"balloon_center_" + look}, 0, 0);
    }
    add({"panel-topleft", "panel-topright", "panel-bottomleft", "panel-bottomright"}, PanelBorder,
        PanelBorder);
    add({"panel-left", "panel-right"}, PanelBorder, PanelEdge);
    add({"panel-top", "panel-bottom"}, PanelEdge, PanelBorder);
    for (const QString& row : Rows)
        add({"command_" + row}, 220, 30);
    add({"pointer_left-click", "btn_clear_field_normal", "btn_clear_field_pressed"}, 16, 16);
    add({"icon_new_normal", "icon_new_hover", "icon_new_pressed", "folder_normal", "folder_hover",
            "print_profile", "print_profile_hover"},
        22, 22);
    add({"pointer_down_up", "pointer_down_hover"}, 9, 5);
    add({"pointer_left_large", "pointer_right_large"}, 12, 46);
    add({"profile_outline", "profile_icon_well_selected"}, 54, 54);
    add({"selected", "hover"}, 14, 9);
    add({"default_profile"}, 48, 48);
    add({"device_balloon"}, 34, 18);
    add({"edge_devicepanel"}, 1, 16);
    add({"key_glow", "key_target_glow"}, 64, 64);
    add({"icon_trash", "icon_trash_hover"}, 48, 56);
    add({"sync_button_animation"}, 29 * SyncFrame, SyncFrame);
    add({"sync_button_hover"}, SyncFrame, SyncFrame);
    add({"search"}, 0, SearchFrame);
    add({"search_icon"}, 17, 17);
    add({"command_editor_highlight"}, 0, 0);
    add({"gradient_mask_gkeys"}, 980, 620);
    add({"gkey_on", "gkey_off", "gkey_hover"}, 32, 32);
    for (const char* name : {"VeltranoBlackLogo", "horizontal_line", "text_field", "sprite_panel",
             "check_mark", "down_arrow", "down_arrow_disabled"})
        pictures << Picture {Host, name, QSize(0, 0)};
    pictures << Picture {Host, "slider_thumb_H_small", QSize(0, 9)};
    for (const char* type : {"keystroke", "multikey", "textblock", "mouse", "media", "hotkeys", "launch",
             "script", "stickmouse", "stickjoystick"})
        pictures << Picture {Host, QString("macro_") + type, QSize(24, 24)};
    return pictures;
}

QImage load(const QString& name, const QString& folder = PlugIn)
{
    return QImage(folder + "/images/" + name + ".png").convertToFormat(QImage::Format_ARGB32);
}

/// The names of a folder's files without their ending.
QSet<QString> namesIn(const QString& folder, const QString& ending)
{
    QSet<QString> names;
    for (const QFileInfo& file : QDir(folder).entryInfoList({"*." + ending}, QDir::Files))
        names << file.completeBaseName();
    return names;
}

QString listed(const QSet<QString>& names)
{
    QStringList list = names.values();
    list.sort();
    return list.join(", ");
}

QImage onCanvas(const QImage& picture)
{
    QImage image(picture.size(), QImage::Format_RGB32);
    image.fill(Canvas);
    QPainter(&image).drawImage(0, 0, picture);
    return image;
}

/// A balloon as its label draws it around a text of the given size.
QImage balloon(const QString& look, int width, int height)
{
    QImage image(width + 10, height + 6, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const auto piece = [&](const char* name) {
        return QPixmap::fromImage(load(QString("balloon_%1_%2").arg(name, look)));
    };
    QPainter painter(&image);
    painter.drawPixmap(0, 0, piece("topleft"));
    painter.drawPixmap(QRect(10, 0, width - 10, 10), piece("top"));
    painter.drawPixmap(width, 0, piece("topright"));
    painter.drawPixmap(QRect(0, 10, 10, height - 14), piece("left"));
    painter.drawPixmap(0, height - 4, piece("bottomleft"));
    painter.drawPixmap(QRect(10, height - 4, width - 10, 10), piece("bottom"));
    painter.drawPixmap(width, height - 4, piece("bottomright"));
    painter.drawPixmap(QRect(width, 10, 10, height - 14), piece("right"));
    painter.drawPixmap(QRect(10, 10, width - 10, height - 14), piece("center"));
    return image;
}

/// The part of the picture, in percent, whose grey differs by more than 40 of 255 levels.
double differingPercent(const QImage& first, const QImage& second)
{
    const QImage one = onCanvas(first);
    const QImage two = onCanvas(second);
    int differing = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            differing += std::abs(qGray(one.pixel(x, y)) - qGray(two.pixel(x, y))) > 40;
    return 100.0 * differing / (one.width() * one.height());
}

QVector<QImage> framesOf(const QImage& strip, int width)
{
    QVector<QImage> frames;
    for (int x = 0; x + width <= strip.width(); x += width)
        frames << strip.copy(x, 0, width, strip.height());
    return frames;
}

QImage column(const QImage& image, int x)
{
    return image.copy(x, 0, 1, image.height());
}
QImage row(const QImage& image, int y)
{
    return image.copy(0, y, image.width(), 1);
}

/// The greatest alpha along the picture's four sides.
int alphaAtTheRim(const QImage& image)
{
    int alpha = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (x == 0 || y == 0 || x == image.width() - 1 || y == image.height() - 1)
                alpha = std::max(alpha, qAlpha(image.pixel(x, y)));
    return alpha;
}

double luminance(const QColor& colour)
{
    const auto linear = [](double channel) {
        return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

/// The least contrast of the text's colour with any pixel of the area, as WCAG 2 defines it (1 to 21).
double contrast(const QColor& text, const QImage& picture, const QRect& area)
{
    const QImage image = onCanvas(picture);
    double least = 21;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x) {
            const double a = luminance(text);
            const double b = luminance(image.pixelColor(x, y));
            least = std::min(least, (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05));
        }
    return least;
}

} // namespace

class PicturesTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pictureHasItsSize_data();
    void pictureHasItsSize();
    void foldersHoldTheInventoryAndNothingElse();
    void everyDrawingHasItsPictureAndTheReverse();
    void picturesNamedInTheCodeExist();
    void statesAreToldApartInGreyToo_data();
    void statesAreToldApartInGreyToo();
    void framesDifferAndKeepToThemselves_data();
    void framesDifferAndKeepToThemselves();
    void balloonPiecesJoin();
    void balloonOfOneLineHasPlainWalls();
    void panelPiecesJoin();
    void panelFrameStandsOffItsPane();
    void maskIsClearOverTheDevice();
    void glowsFadeToNothing();
    void textIsReadable_data();
    void textIsReadable();
};

void PicturesTest::pictureHasItsSize_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QSize>("size");
    for (const Picture& picture : inventory())
        QTest::newRow(qPrintable(picture.name)) << picture.folder << picture.size;
}

void PicturesTest::pictureHasItsSize()
{
    QFETCH(QString, folder);
    QFETCH(QSize, size);
    const QImage image = load(QTest::currentDataTag(), folder);
    QVERIFY(!image.isNull());
    QCOMPARE(image.size(),
        QSize(size.width() ? size.width() : image.width(), size.height() ? size.height() : image.height()));
}

void PicturesTest::foldersHoldTheInventoryAndNothingElse()
{
    for (const QString& folder : {PlugIn, Host}) {
        QSet<QString> expected;
        for (const Picture& picture : inventory())
            if (picture.folder == folder)
                expected << picture.name;
        QCOMPARE(listed(namesIn(folder + "/images", "png")), listed(expected));
    }
}

void PicturesTest::everyDrawingHasItsPictureAndTheReverse()
{
    for (const QString& folder : {PlugIn, Host})
        QCOMPARE(listed(namesIn(folder + "/artwork", "svg")), listed(namesIn(folder + "/images", "png")));
}

void PicturesTest::picturesNamedInTheCodeExist()
{
    static const QRegularExpression reference(
        "(MainApp:/Resources/images/|Resources/images/|\")([\\w-]+\\.png)");
    int found = 0;
    for (const char* folder : {"plugin", "scene", "hotspots", "commands", "dialogs", "profilebar", "view"}) {
        QDirIterator files(
            Source + '/' + folder, {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            QVERIFY(file.open(QIODevice::ReadOnly));
            auto matches = reference.globalMatch(QString::fromUtf8(file.readAll()));
            while (matches.hasNext()) {
                const QRegularExpressionMatch match = matches.next();
                const QString picture = (match.captured(1).startsWith("MainApp:") ? Host : PlugIn)
                    + "/images/" + match.captured(2);
                QVERIFY2(QFileInfo::exists(picture), qPrintable(file.fileName() + ": " + match.captured()));
                ++found;
            }
        }
    }
    QVERIFY(found > 0);
}

void PicturesTest::statesAreToldApartInGreyToo_data()
{
    QTest::addColumn<QImage>("first");
    QTest::addColumn<QImage>("second");
    QTest::addColumn<double>("least");

    const auto pair = [](const QString& first, const QString& second, double least) {
        QTest::newRow(qPrintable(first + " and " + second)) << load(first) << load(second) << least;
    };
    // A rim or a fill changes at least a twentieth of a picture; the mark of an assigned command is small.
    const double rim = 5;
    const double mark = 0.4;
    for (int i = 0; i < Rows.size(); ++i)
        for (int j = i + 1; j < Rows.size(); ++j) {
            const bool onlyMark = Rows[j] == Rows[i] + "_assigned";
            pair("command_" + Rows[i], "command_" + Rows[j], onlyMark ? mark : rim);
        }
    for (int i = 0; i < Looks.size(); ++i)
        for (int j = i + 1; j < Looks.size(); ++j)
            QTest::newRow(qPrintable("balloons " + Looks[i] + " and " + Looks[j]))
                << balloon(Looks[i], 70, 13) << balloon(Looks[j], 70, 13) << rim;
    pair("icon_new_normal", "icon_new_hover", rim);
    pair("icon_new_normal", "icon_new_pressed", rim);
    pair("icon_new_hover", "icon_new_pressed", rim);
    pair("folder_normal", "folder_hover", rim);
    pair("print_profile", "print_profile_hover", rim);
    pair("pointer_down_up", "pointer_down_hover", rim);
    pair("profile_outline", "profile_icon_well_selected", rim);
    pair("selected", "hover", rim);
    pair("key_glow", "key_target_glow", rim);
    pair("icon_trash", "icon_trash_hover", rim);
    pair("btn_clear_field_normal", "btn_clear_field_pressed", rim);
    pair("gkey_on", "gkey_off", rim);
    pair("gkey_on", "gkey_hover", rim);
    pair("gkey_off", "gkey_hover", rim);
    QTest::newRow("sync button and its hover")
        << load("sync_button_animation").copy(0, 0, SyncFrame, SyncFrame) << load("sync_button_hover") << rim;
}

void PicturesTest::statesAreToldApartInGreyToo()
{
    QFETCH(QImage, first);
    QFETCH(QImage, second);
    QFETCH(double, least);
    QCOMPARE(first.size(), second.size());
    const double percent = differingPercent(first, second);
    QVERIFY2(percent >= least, qPrintable(QString("only %1 % differ").arg(percent)));
}

void PicturesTest::framesDifferAndKeepToThemselves_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("leastCount");
    QTest::newRow("sync_button_animation") << SyncFrame << 29;
    QTest::newRow("search") << SearchFrame << 8;
}

void PicturesTest::framesDifferAndKeepToThemselves()
{
    QFETCH(int, width);
    QFETCH(int, leastCount);
    const QImage strip = load(QTest::currentDataTag());
    QCOMPARE(strip.width() % width, 0);
    const QVector<QImage> frames = framesOf(strip, width);
    QVERIFY(frames.size() >= leastCount);
    for (int i = 0; i < frames.size(); ++i) {
        QCOMPARE(alphaAtTheRim(frames[i]), 0);
        for (int j = i + 1; j < frames.size(); ++j)
            QVERIFY2(differingPercent(frames[i], frames[j]) > 1,
                qPrintable(QString("frames %1 and %2").arg(i).arg(j)));
    }
}

void PicturesTest::balloonPiecesJoin()
{
    const int last = BalloonCorner - 1;
    for (const QString& look : Looks) {
        const auto piece = [&](const char* name) {
            return load(QString("balloon_%1_%2").arg(name, look));
        };
        for (const char* side : {"top", "bottom"}) {
            const QImage edge = piece(side);
            QCOMPARE(column(load(QString("balloon_%1left_%2").arg(side, look)), last), column(edge, 0));
            QCOMPARE(column(load(QString("balloon_%1right_%2").arg(side, look)), 0),
                column(edge, edge.width() - 1));
        }
        for (const char* side : {"left", "right"}) {
            const QImage edge = piece(side);
            QCOMPARE(row(load(QString("balloon_top%1_%2").arg(side, look)), last), row(edge, 0));
            QCOMPARE(
                row(load(QString("balloon_bottom%1_%2").arg(side, look)), 0), row(edge, edge.height() - 1));
        }
        const QRgb centre = piece("center").pixel(0, 0);
        QCOMPARE(piece("top").pixel(0, last), centre);
        QCOMPARE(piece("bottom").pixel(0, 0), centre);
        QCOMPARE(piece("left").pixel(last, 0), centre);
        QCOMPARE(piece("right").pixel(0, 0), centre);
    }
}

// A single line is lower than two corners: the lower ones, and the sides and the centre at their own height,
// then lie over the upper ones. None of it may show.
void PicturesTest::balloonOfOneLineHasPlainWalls()
{
    for (const QString& look : Looks) {
        const QImage high = balloon(look, 70, 40);
        for (int textHeight = 11; textHeight <= 16; ++textHeight) {
            const QImage low = balloon(look, 70, textHeight);
            const int half = low.height() / 2;
            QCOMPARE(low.copy(0, 0, low.width(), half), high.copy(0, 0, low.width(), half));
            const int rest = low.height() - half;
            QCOMPARE(
                low.copy(0, half, low.width(), rest), high.copy(0, high.height() - rest, low.width(), rest));
        }
    }
}

void PicturesTest::panelPiecesJoin()
{
    const int last = PanelBorder - 1;
    const auto piece = [](const char* name) {
        return load(QString("panel-") + name);
    };
    QCOMPARE(column(piece("topleft"), last), column(piece("top"), 0));
    QCOMPARE(column(piece("topright"), 0), column(piece("top"), PanelEdge - 1));
    QCOMPARE(column(piece("bottomleft"), last), column(piece("bottom"), 0));
    QCOMPARE(column(piece("bottomright"), 0), column(piece("bottom"), PanelEdge - 1));
    QCOMPARE(row(piece("topleft"), last), row(piece("left"), 0));
    QCOMPARE(row(piece("bottomleft"), 0), row(piece("left"), PanelEdge - 1));
    // The right edge is placed one pixel further in than its corners.
    QCOMPARE(row(piece("topright"), last).copy(0, 0, last, 1), row(piece("right"), 0).copy(1, 0, last, 1));
    QCOMPARE(row(piece("bottomright"), 0).copy(0, 0, last, 1),
        row(piece("right"), PanelEdge - 1).copy(1, 0, last, 1));
    QCOMPARE(piece("right").pixel(0, 0), qRgba(0, 0, 0, 255));
    // Stretched along its length, an edge must not change along it.
    for (int i = 1; i < PanelEdge; ++i) {
        QCOMPARE(column(piece("top"), i), column(piece("top"), 0));
        QCOMPARE(column(piece("bottom"), i), column(piece("bottom"), 0));
        QCOMPARE(row(piece("left"), i), row(piece("left"), 0));
        QCOMPARE(row(piece("right"), i), row(piece("right"), 0));
    }
}

// The frames in front of the panes reach up to 11 pixels over their edges; the bevel stands beyond, and
// outside it the shadow only gets weaker until nothing is left.
void PicturesTest::panelFrameStandsOffItsPane()
{
    const QImage bottom = load("panel-bottom");
    for (int y = 0; y < 11; ++y)
        QCOMPARE(bottom.pixel(0, y), qRgba(0, 0, 0, 255));
    QVERIFY(bottom.pixel(0, 11) != qRgba(0, 0, 0, 255));
    int y = 11;
    while (y < PanelBorder && qAlpha(bottom.pixel(0, y)) == 255)
        ++y;
    QVERIFY(y < PanelBorder - 3);
    for (; y < PanelBorder - 1; ++y)
        QVERIFY(qAlpha(bottom.pixel(0, y)) > qAlpha(bottom.pixel(0, y + 1)));
    QCOMPARE(qAlpha(bottom.pixel(0, PanelBorder - 1)), 0);
}

void PicturesTest::maskIsClearOverTheDevice()
{
    const QImage mask = load("gradient_mask_gkeys");
    for (int y = 140; y < 596; ++y)
        for (int x = 330; x < 956; ++x)
            if (qAlpha(mask.pixel(x, y)) != 0)
                QFAIL(qPrintable(QString("dark at %1, %2").arg(x).arg(y)));
    for (int x = 1; x < 330; ++x)
        QVERIFY(qAlpha(mask.pixel(x - 1, 400)) >= qAlpha(mask.pixel(x, 400)));
    for (int y = 1; y < 140; ++y)
        QVERIFY(qAlpha(mask.pixel(700, y - 1)) >= qAlpha(mask.pixel(700, y)));
    QVERIFY(qAlpha(mask.pixel(0, 400)) > 200);
    QVERIFY(qAlpha(mask.pixel(700, 0)) > 200);
}

void PicturesTest::glowsFadeToNothing()
{
    for (const char* name : {"key_glow", "key_target_glow", "icon_trash_hover"})
        QVERIFY2(alphaAtTheRim(load(name)) <= 12, name);
}

void PicturesTest::textIsReadable_data()
{
    QTest::addColumn<QImage>("picture");
    QTest::addColumn<QRect>("area");
    QTest::addColumn<QColor>("text");
    for (const QString& look : Looks)
        QTest::newRow(qPrintable("balloon " + look)) << balloon(look, 70, 13) << QRect(5, 3, 70, 13)
                                                     << QColor(look == "static" ? "#b4b4b4" : "#ffffff");
    for (const QString& name : Rows)
        QTest::newRow(qPrintable("row " + name))
            << load("command_" + name) << QRect(10, 2, 200, 26) << QColor(Qt::white);
    QTest::newRow("device name") << load("device_balloon") << QRect(2, 2, 30, 14) << QColor(Qt::white);
    QTest::newRow("command type") << load("command_editor_highlight") << QRect(5, 5, 20, 20)
                                  << QColor(Qt::white);
    const QImage field = load("text_field", Host);
    const QRect inside = field.rect().adjusted(7, 7, -7, -7);
    QTest::newRow("search text") << field << inside << QColor(Qt::black);
    QTest::newRow("idle search") << field << inside << QColor("#606060");
}

void PicturesTest::textIsReadable()
{
    QFETCH(QImage, picture);
    QFETCH(QRect, area);
    QFETCH(QColor, text);
    const double ratio = contrast(text, picture, area);
    QVERIFY2(ratio >= 4.5, qPrintable(QString("contrast is %1").arg(ratio)));
}

VELTRANO_TEST_MAIN(PicturesTest)
#include "PicturesTest.moc"
