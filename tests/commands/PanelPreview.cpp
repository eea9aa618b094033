#include "CommandSupport.h"

#include <ApplicationLook.h>
#include <cMacroItem.h>
#include <cSearchBox.h>
#include <cSearchEditLine.h>
#include <PluginFolder.h>

#include <QApplication>
#include <QDir>
#include <QEnterEvent>
#include <QFile>
#include <QLabel>
#include <QPixmap>

#include <cstdio>

// Draws the command panel in its states into a folder, as the application shows it and in larger text:
//   panel_preview <folder>

using namespace CommandSupport;

namespace {

const QDir Source(QStringLiteral(VELTRANO_SOURCE_DIR));

cJsonValue samples()
{
    cJsonValue records(cJsonValue::arrayValue);
    const QStringList names {"Jump", "Fire", "Reload", "Crouch",
        "Open the map of the whole northern continent", "Push to talk", "Grenade", "Next weapon",
        QString::fromUtf8("Übersicht & Karte"), "Screenshot", "Sprint", "<b>Bold</b> move", "Heal",
        "Volume up"};
    const QStringList types {Keys, Text};
    for (int i = 0; i < names.size(); ++i)
        records.append(macro(QString("{%1}").arg(i + 1), names[i], types[i % 2]));
    return records;
}

/// The panel as the view puts it together, with a magnified picture of it.
class Preview
{
public:
    explicit Preview(const QString& folder)
        : m_folder(folder)
        , m_box(244, 28, &m_panel.window)
    {
        m_panel.types = {cMacroTypePtr(new FakeType(Keys, image("macro_keystroke"))),
            cMacroTypePtr(new FakeType(Text, image("macro_textblock")))};
        m_panel.host.answer("isMacroAssigned",
            [](const RecordedCall& call) { return QVariant(call.values[3].toString().contains('2')); });
        m_panel.window.setFixedSize(238, 380);
        m_panel.window.setAutoFillBackground(true);
        auto* title = new QLabel("Commands", &m_panel.window);
        title->setProperty("uiType", "PanelTitle");
        title->move(0, 2);
        m_box.move(-3, 31);
        m_panel.list->move(-1, 64);
        for (QWidget* widget : {static_cast<QWidget*>(title), static_cast<QWidget*>(&m_box)})
            widget->show();
    }

    void draw(const QString& name)
    {
        QCoreApplication::processEvents();
        const QPixmap picture = m_panel.window.grab();
        picture.scaled(picture.size() * 2).save(QDir(m_folder).filePath(name + ".png"));
    }

    void drawAll(const QString& prefix)
    {
        draw(prefix + "1-empty");
        m_panel.fill(samples());
        draw(prefix + "2-filled");
        m_panel.select({1, 2, 3});
        for (const int row : {0, 2, 6}) {
            QEnterEvent event(QPointF(1, 1), QPointF(1, 1), QPointF(1, 1));
            QCoreApplication::sendEvent(m_panel.row(row), &event);
        }
        draw(prefix + "3-hover-selected-assigned");
        auto* edit = m_box.findChild<cSearchEditLine*>();
        edit->setInitialStatus(false);
        search("re");
        draw(prefix + "4-searching");
        search("nothing");
        draw(prefix + "5-no-results");
    }

private:
    static QString image(const char* name)
    {
        return Source.filePath(QString("host/resources/images/%1.png").arg(name));
    }
    void search(const QString& text)
    {
        auto* edit = m_box.findChild<cSearchEditLine*>();
        edit->setText(text);
        QMetaObject::invokeMethod(&m_box, "onTextEdited", Q_ARG(QString, text));
        m_panel.search(text);
    }

    const QString m_folder;
    Panel m_panel;
    cSearchBox m_box;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "panel_preview <folder>\n");
        return 1;
    }
    QDir::setSearchPaths("MainApp", {QStringLiteral(VELTRANO_SHARE_DIR)});
    const PluginFolder folder(Source.path());
    QFile style(Source.filePath("host/resources/style/veltrano.qss"));
    if (!style.open(QIODevice::ReadOnly))
        return 1;
    ApplicationLook::apply();
    const QByteArray sheet = style.readAll();
    for (const int size : {13, 16, 20}) {
        QFont font = QApplication::font();
        font.setPixelSize(size);
        QApplication::setFont(font);
        application.setStyleSheet(sheet);
        Preview(argv[1]).drawAll(QString("%1px-").arg(size));
    }
    return 0;
}
