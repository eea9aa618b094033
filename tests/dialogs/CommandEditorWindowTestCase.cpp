#include "CommandEditorWindowTestCase.h"

#include <ApplicationLook.h>
#include <cMacroBindingView.h>
#include <cMacroEditor.h>
#include <cMacroTypeIconItem.h>
#include <cMainUI.h>
#include <cProfileMgr.h>
#include <DialogDriver.h>
#include <FixedIds.h>
#include <HostApplication.h>
#include <IMacroEditor.h>
#include <KeyCaptureButton.h>
#include <MacroTypeIds.h>
#include <MainWindow.h>
#include <PluginFolder.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QUuid>

CommandEditorWindowTestCase::CommandEditorWindowTestCase() = default;

CommandEditorWindowTestCase::~CommandEditorWindowTestCase() = default;

void CommandEditorWindowTestCase::initTestCase()
{
    TestCase::initTestCase();
    ApplicationLook::apply();
    QApplication::setQuitOnLastWindowClosed(false);
    m_plugin = std::make_unique<PluginFolder>(SOURCE_FOLDER);
    ApplicationPaths paths;
    paths.pluginsFolder = m_folder.path();
    paths.shareFolder = SHARE_FOLDER;
    m_host = std::make_unique<HostApplication>(
        paths, CommandLine({"test", "--data-dir", m_folder.filePath("data")}));
    m_host->start();
    QVERIFY(QTest::qWaitForWindowActive(&m_host->window()));
    // As the host asks a plug-in that is there from the start.
    QVERIFY(
        QMetaObject::invokeMethod(cMacroBindingView::instance(), "onRegisterHelpProvider", Q_ARG(int, 10)));
}

void CommandEditorWindowTestCase::cleanupTestCase()
{
    delete cMacroBindingView::instance();
    m_host.reset();
    m_plugin.reset();
    qApp->setStyleSheet(QString());
    TestCase::cleanupTestCase();
}

void CommandEditorWindowTestCase::init()
{
    cProfileMgr profiles;
    m_profile = QUuid::createUuid().toString().toUpper();
    cJsonValue profile;
    profile["uid"] = m_profile;
    profile["name"] = "Test";
    QVERIFY(profiles.addProfile(profile));
    showProfile(m_profile);
}

void CommandEditorWindowTestCase::cleanup()
{
    cProfileMgr().deleteProfileByID(m_profile);
    m_closed.clear();
}

void CommandEditorWindowTestCase::showProfile(const QString& profile)
{
    QMetaObject::invokeMethod(
        cMacroBindingView::instance(), "onProfileSelectionChanging", Q_ARG(QString, profile));
}

void CommandEditorWindowTestCase::run(const cJsonValue& macro, const std::function<void(QDialog&)>& use)
{
    DialogDriver driver([&](QDialog& dialog) {
        // Qt calls a dialog active while its main window is; the focus tells.
        QTRY_VERIFY(dialog.isAncestorOf(QApplication::focusWidget()));
        use(dialog);
    });
    cMacroEditor editor(macro, cMainUI().window(), true);
    connect(&editor, SIGNAL(macroEditorClosed(QString)), this, SLOT(onMacroEditorClosed(QString)));
    editor.exec();
    QVERIFY(driver.hasRun());
}

cJsonValue CommandEditorWindowTestCase::commandNamed(const QString& name) const
{
    const cJsonValue macros = cProfileMgr().macros(m_profile);
    for (int i = 0; i < int(macros.size()); ++i) {
        if (macros[i]["display_name"].toString() == name)
            return macros[i];
    }
    return {};
}

cMacroTypeIconItem* CommandEditorWindowTestCase::icon(const QDialog& dialog, const QString& typeId)
{
    for (cMacroTypeIconItem* item : dialog.findChildren<cMacroTypeIconItem*>()) {
        if (item->macroTypeID() == typeId)
            return item;
    }
    return nullptr;
}

QPushButton* CommandEditorWindowTestCase::button(const QDialog& dialog, const QString& text)
{
    for (QPushButton* each : dialog.findChildren<QPushButton*>()) {
        if (each->text().remove('&') == text && each->isVisible())
            return each;
    }
    return nullptr;
}

QLineEdit* CommandEditorWindowTestCase::nameOf(const QDialog& dialog)
{
    for (QLineEdit* each : dialog.findChildren<QLineEdit*>()) {
        if (each->property("uiType") == "meLineEdit")
            return each;
    }
    return nullptr;
}

IMacroEditor* CommandEditorWindowTestCase::formOf(const QDialog& dialog)
{
    return qobject_cast<IMacroEditor*>(dialog.findChild<QStackedWidget*>()->currentWidget());
}

QString CommandEditorWindowTestCase::messageOf(const QDialog& dialog)
{
    for (const QLabel* label : formOf(dialog)->findChildren<QLabel*>()) {
        if (label->property("uiType") == "meMessage" && label->isVisible())
            return label->text();
    }
    return QString();
}

void CommandEditorWindowTestCase::addTypes()
{
    QTest::addColumn<QString>("typeId");
    for (const QLatin1String typeId : {MacroTypeIds::Keystroke, MacroTypeIds::MultiKey,
             MacroTypeIds::TextBlock, MacroNamespaces::MouseFunction, MacroNamespaces::Media,
             MacroNamespaces::Hotkeys, MacroTypeIds::Launch, MacroTypeIds::Script})
        QTest::newRow(qPrintable(QString(typeId).section('/', -1))) << QString(typeId);
}

QString CommandEditorWindowTestCase::nameAfterFilling(const QString& typeId)
{
    if (typeId == MacroTypeIds::Keystroke || typeId == MacroTypeIds::MultiKey)
        return "A";
    if (typeId == MacroTypeIds::TextBlock)
        return "gg wp";
    if (typeId == MacroTypeIds::Launch)
        return "sh";
    if (typeId == MacroTypeIds::Script)
        return "reload";
    if (typeId == MacroNamespaces::MouseFunction)
        return "Right Click";
    return typeId == MacroNamespaces::Media ? "Stop" : "Cut";
}

void CommandEditorWindowTestCase::fillIn(const QDialog& dialog, const QString& typeId)
{
    QWidget* const field = QApplication::focusWidget();
    QVERIFY(formOf(dialog)->isAncestorOf(field));
    if (typeId == MacroTypeIds::Keystroke || typeId == MacroTypeIds::MultiKey) {
        QVERIFY(qobject_cast<KeyCaptureButton*>(field));
        QTest::keyClick(field, Qt::Key_Space);
        QTest::keyClick(field, Qt::Key_A);
        // Ends a recording; a keystroke is complete by now.
        if (typeId == MacroTypeIds::MultiKey)
            QTest::keyClick(field, Qt::Key_Escape);
    } else if (typeId == MacroTypeIds::TextBlock) {
        QTest::keyClicks(field, "gg wp");
    } else if (typeId == MacroTypeIds::Launch) {
        QTest::keyClicks(field, "/bin/sh");
    } else if (typeId == MacroTypeIds::Script) {
        QTest::keyClicks(field, "reload");
    } else {
        QTest::keyClick(field, Qt::Key_Home);
        QTest::keyClick(field, Qt::Key_Down);
    }
}

QString CommandEditorWindowTestCase::clippedPart(const QWidget& dialog)
{
    for (const QWidget* widget : dialog.findChildren<QWidget*>()) {
        if (!widget->isVisible())
            continue;
        const auto* const label = qobject_cast<const QLabel*>(widget);
        const bool isText =
            label || qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QComboBox*>(widget);
        if (!isText)
            continue;
        QSize needed = widget->minimumSizeHint();
        if (label && label->wordWrap())
            needed = QSize(0, label->heightForWidth(label->width()));
        const QRect place(widget->mapTo(&dialog, QPoint()), widget->size());
        if (widget->width() < needed.width() || widget->height() < needed.height()
            || !dialog.rect().contains(place))
            return QString("%1 \"%2\": %3x%4, needs %5x%6")
                .arg(widget->metaObject()->className(), widget->property("text").toString())
                .arg(widget->width())
                .arg(widget->height())
                .arg(needed.width())
                .arg(needed.height());
    }
    return QString();
}
