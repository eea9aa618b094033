#include <cJsonValue.h>
#include <IMacroEditor.h>
#include <MacroTypes.h>

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFont>
#include <QPixmap>
#include <QVBoxLayout>

#include <cstdio>
#include <memory>

// Draws the pages of the command types into a folder, at the usual size of text and larger:
//   macrotype_preview <folder> [style sheet...]

namespace {

constexpr int FontSize = 13;
constexpr int PageWidth = 420;
constexpr int PageHeight = 340;

class IgnoringSink : public IInputSink
{
public:
    void send(const InputEvent&) override { }
};

cJsonValue sampleData(const QString& tag)
{
    cJsonValue data;
    if (tag.endsWith(QLatin1String("Keystroke"))) {
        data["keys"] = "Ctrl+Shift+A";
    } else if (tag.endsWith(QLatin1String("MultiKey"))) {
        for (int i = 0; i < 12; ++i) {
            cJsonValue event;
            event["type"] = i % 2 ? "release" : "press";
            event["key"] = QString(QChar('A' + i / 2));
            event["delay"] = i * 40;
            data["events"].append(event);
        }
    } else if (tag.endsWith(QLatin1String("TextBlock"))) {
        data["text"] = "Good game, everyone!\nSame time tomorrow?";
    } else if (tag.endsWith(QLatin1String("Launch"))) {
        data["path"] = "/usr/bin/env";
        data["arguments"] = "--help";
    } else if (tag.endsWith(QLatin1String("Script"))) {
        data["function"] = "weapons.reload";
        data["argument"] = "fast";
    } else if (tag.endsWith(QLatin1String("MouseFunction"))) {
        data["function"] = "DPI Shift";
    } else {
        data["function"] = tag.endsWith(QLatin1String("Media")) ? "Volume Up" : "Copy";
    }
    return data;
}

void draw(IMacroEditor* editor, double scale, const QString& file)
{
    QDialog dialog;
    auto* const layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(editor);
    dialog.resize((QSizeF(PageWidth, PageHeight) * scale).toSize().expandedTo(dialog.minimumSizeHint()));
    dialog.show();
    QCoreApplication::processEvents();
    if (!dialog.grab().save(file))
        std::fprintf(stderr, "can't write %s\n", qPrintable(file));
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2) {
        std::fprintf(stderr, "usage: macrotype_preview <folder> [style sheet...]\n");
        return 2;
    }
    const QDir folder(arguments[1]);
    QString style;
    for (const QString& name : arguments.mid(2)) {
        QFile file(name);
        if (file.open(QIODevice::ReadOnly))
            style += QString::fromUtf8(file.readAll());
    }
    for (const int percent : {100, 125, 150}) {
        QFont font(QStringLiteral("Arial"));
        font.setPixelSize(FontSize * percent / 100);
        QApplication::setFont(font);
        application.setStyleSheet(style);
        for (const cMacroTypePtr& type : MacroTypes::all(std::make_shared<IgnoringSink>())) {
            const QString uid = type->info()["uid"].toString();
            const QString name = uid.section(QLatin1Char('/'), -1).toLower();
            cJsonValue macro;
            macro["namespace"] = uid;
            macro["data"] = sampleData(uid);
            const auto save = [&](IMacroEditor* editor, const char* state) {
                draw(editor, percent / 100.0,
                    folder.filePath(QStringLiteral("%1_%2_%3.png").arg(name).arg(percent).arg(state)));
            };
            save(type->editor(macro), "filled");
            IMacroEditor* const empty = type->editor(cJsonValue());
            empty->onOK();
            save(empty, "refused");
        }
    }
    return 0;
}
