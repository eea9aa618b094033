#include "LcdDevices.h"

#include <EditProfileDialog.h>
#include <MetaMembers.h>
#include <RecordingHost.h>
#include <ServiceNames.h>
#include <TestCase.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <QUuid>
#include <QVBoxLayout>

#include <functional>
#include <memory>

namespace {

const QString OwnId = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000001}");
const QString OtherId = QStringLiteral("{AAAAAAAA-0000-0000-0000-000000000002}");

cJsonValue profileRecord(const QString& uid, const QString& name)
{
    cJsonValue record;
    record["uid"] = uid;
    record["name"] = name;
    return record;
}

cJsonValue listOf(const QVector<cJsonValue>& records)
{
    cJsonValue list(cJsonValue::arrayValue);
    for (const cJsonValue& record : records)
        list.append(record);
    return list;
}

/// The dialog, with its controls found as a user finds them.
class Form
{
public:
    Form()
        : dialog(nullptr)
    { }

    template<typename Button>
    Button* button(const QString& text) const
    {
        for (auto* const each : dialog.findChildren<Button*>()) {
            if (each->text() == text)
                return each;
        }
        return nullptr;
    }
    QLabel* label(const QString& text) const
    {
        for (auto* const each : dialog.findChildren<QLabel*>()) {
            if (each->text() == text)
                return each;
        }
        return nullptr;
    }
    QLineEdit* field(const QString& caption) const
    {
        return qobject_cast<QLineEdit*>(label(caption)->buddy());
    }
    QLineEdit* name() const { return field(QStringLiteral("Name:")); }
    QLineEdit* description() const { return field(QStringLiteral("Description:")); }
    QLineEdit* executable() const { return group()->findChild<QLineEdit*>(); }
    QGroupBox* group() const { return dialog.findChild<QGroupBox*>(); }
    QPushButton* ok() const { return button<QPushButton>(QStringLiteral("OK")); }
    QPushButton* cancel() const { return button<QPushButton>(QStringLiteral("Cancel")); }
    QPushButton* browseButton() const { return button<QPushButton>(QStringLiteral("...")); }
    QRadioButton* browse() const { return button<QRadioButton>(QStringLiteral("Browse")); }
    QRadioButton* select() const
    {
        return button<QRadioButton>(QStringLiteral("Select using DeckPanel display"));
    }
    QCheckBox* lock() const
    {
        return button<QCheckBox>(QStringLiteral("Lock profile while game is running"));
    }
    QCheckBox* copy() const { return button<QCheckBox>(QStringLiteral("Copy from an existing profile")); }
    QComboBox* profiles() const { return dialog.findChild<QComboBox*>(); }

    EditProfileDialog dialog;
};

} // namespace

class EditProfileDialogTest : public TestCase
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void slotsAreDeclaredInTheirOrder();
    void windowIsModalWithTitleBarAndIcon();
    void controlsForADisplayExistOnlyWithOne_data();
    void controlsForADisplayExistOnlyWithOne();
    void formIsLaidOutAsDesigned();
    void formWithDisplayIsLaidOutAsDesigned();
    void tabKeyGoesFromTopToBottom();
    void eventsAreHeardFromConstructionToDestruction();
    void newProfileListsProfilesToCopyFrom();
    void newProfileWithoutAListHasNothingToCopyFrom();
    void newProfileIsStoredWithAnIdOfItsOwn();
    void editFillsTheForm();
    void editHasNothingToCopyFrom();
    void editKeepsWhatTheFormDoesNotShow();
    void saveAsStartsBlankAndKeepsOnlyFiveKeys();
    void okIsEnabledByName_data();
    void okIsEnabledByName();
    void radioButtonsEnableTheExecutable();
    void copyCheckEnablesTheCombo();
    void wrongFormIsToldAndStaysOpen_data();
    void wrongFormIsToldAndStaysOpen();
    void nameIsTaken_data();
    void nameIsTaken();
    void nameIsFreeWhenThereIsNoList();
    void selectedDisplayNeedsNoExecutable();
    void withoutDisplayUseLcdIsFalse();
    void selectedDisplayWithoutNameIsCaughtByOk();
    void copyTakesTheWholeRecordUnderANewId();
    void copyOfAProfileThatHasGoneHasNoId();
    void resultOfTheHostIsNotRead();
    void cancelStoresNothing_data();
    void cancelStoresNothing();
    void deletionElsewhereClosesTheDialog_data();
    void deletionElsewhereClosesTheDialog();
    void deletionWhileAMessageIsOpenClosesTheDialog();
    void browsePutsTheChosenFileIntoTheForm();
    void browseBeginsWhereTheExecutableIs_data();
    void browseBeginsWhereTheExecutableIs();
    void cancelledBrowseChangesNothing();
    void helpKeyOpensThePage();
    void enterAcceptsWhatIsComplete();

private:
    void setLcdDevices(int count) { m_host->answer("lcdDevices", LcdDevices::make(count)); }
    QString existingFile() const { return m_folder->filePath(QStringLiteral("game.exe")); }
    /// The record of the one call of that operation; null if there was another number of them.
    cJsonValue stored(const QString& operation) const;
    /// Makes a form whose OK would store.
    void fillIn(const Form& form) const;

    std::unique_ptr<RecordingHost> m_host;
    std::unique_ptr<QTemporaryDir> m_folder;
};

void EditProfileDialogTest::init()
{
    m_host = std::make_unique<RecordingHost>();
    m_host->answer("profiles", listOf({profileRecord(OtherId, "Other")}));
    m_folder = std::make_unique<QTemporaryDir>();
    QFile file(existingFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
}

void EditProfileDialogTest::cleanup()
{
    m_host.reset();
    m_folder.reset();
}

cJsonValue EditProfileDialogTest::stored(const QString& operation) const
{
    QVector<cJsonValue> records;
    for (const RecordedCall& call : m_host->calls()) {
        if (call.operation == operation)
            records.append(call.values.first().value<cJsonValue>());
    }
    return records.size() == 1 ? records.first() : cJsonValue();
}

void EditProfileDialogTest::fillIn(const Form& form) const
{
    form.name()->setText("Mine");
    form.executable()->setText(existingFile());
}

void EditProfileDialogTest::slotsAreDeclaredInTheirOrder()
{
    QCOMPARE(MetaMembers::slotsOf(EditProfileDialog::staticMetaObject),
        QStringList({"OnOK()", "OnCancel()", "OnBrowse()", "OnBrowseRadioButtonClicked()",
            "OnSelectRadioButtonClicked()", "OnCopyExisitingCheckBoxClicked()", "onNameTextChanged(QString)",
            "onProfileDeleted(QString)"}));
    QCOMPARE(MetaMembers::signalsOf(EditProfileDialog::staticMetaObject), QStringList());
}

void EditProfileDialogTest::windowIsModalWithTitleBarAndIcon()
{
    // Icons are looked up when they are drawn; an existing file shows that the path is the one.
    const QTemporaryDir host;
    QDir(host.path()).mkpath("Resources/images");
    QPixmap logo(16, 16);
    logo.fill(Qt::red);
    QVERIFY(logo.save(host.filePath("Resources/images/VeltranoBlackLogo.png")));
    QDir::setSearchPaths("MainApp", {host.path()});

    QWidget window;
    const EditProfileDialog dialog(&window);
    QCOMPARE(dialog.parentWidget(), &window);
    QCOMPARE(dialog.windowModality(), Qt::WindowModal);
    QCOMPARE(dialog.windowFlags(),
        Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
    QCOMPARE(dialog.windowIcon().pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::red));
    QDir::setSearchPaths("MainApp", {});
}

void EditProfileDialogTest::controlsForADisplayExistOnlyWithOne_data()
{
    QTest::addColumn<int>("devices");
    QTest::addColumn<bool>("exist");

    QTest::newRow("null list") << LcdDevices::NoList << false;
    QTest::newRow("empty list") << 0 << false;
    QTest::newRow("negative count") << -2 << false;
    QTest::newRow("one device") << 1 << true;
    QTest::newRow("three devices") << 3 << true;
}

void EditProfileDialogTest::controlsForADisplayExistOnlyWithOne()
{
    QFETCH(int, devices);
    QFETCH(bool, exist);
    setLcdDevices(devices);
    const Form form;
    QCOMPARE(form.browse() != nullptr, exist);
    QCOMPARE(form.select() != nullptr, exist);
    QCOMPARE(form.dialog.findChildren<QRadioButton*>().size(), exist ? 2 : 0);
    QLabel* const instruction = form.label("Run the program as the foreground window. Press the OK button "
                                           "underneath the DeckPanel display.");
    QCOMPARE(instruction != nullptr, exist);
    if (exist) {
        QVERIFY(form.browse()->isChecked());
        QVERIFY(!form.select()->isChecked());
        QVERIFY(instruction->wordWrap());
    }
    // Only the number is asked for.
    QCOMPARE(m_host->takeCalls(), QStringList("lcdDevices()"));
}

/// Lines such as "HBox [Label, stretch, LineEdit]".
static QString describe(const QLayout& layout)
{
    QStringList parts;
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem* const item = layout.itemAt(i);
        if (const QSpacerItem* const spacer = item->spacerItem()) {
            const bool isFixed = spacer->sizePolicy().horizontalPolicy() == QSizePolicy::Minimum
                && spacer->sizePolicy().verticalPolicy() == QSizePolicy::Minimum;
            parts.append(isFixed
                    ? QString("%1x%2").arg(spacer->sizeHint().width()).arg(spacer->sizeHint().height())
                    : QString("stretch"));
        } else if (item->layout()) {
            parts.append(describe(*item->layout()));
        } else {
            const QWidget* const widget = item->widget();
            const QVariant text =
                widget->property("text").isValid() ? widget->property("text") : widget->property("title");
            parts.append(widget->inherits("QLineEdit") || widget->inherits("QComboBox")
                    ? QString(widget->metaObject()->className())
                    : text.toString().left(6));
        }
    }
    const QLatin1String name(qobject_cast<const QVBoxLayout*>(&layout) ? "V" : "H");
    return name + '[' + parts.join(", ") + ']';
}

void EditProfileDialogTest::formIsLaidOutAsDesigned()
{
    const Form form;
    QCOMPARE(describe(*form.dialog.layout()),
        QString("V[H[Name:, stretch, QLineEdit], H[Descri, stretch, QLineEdit], 0x10, Select, 0x10, Lock p, "
                "0x10, Copy f, H[20x0, QComboBox, stretch], 0x20, H[stretch, OK, Cancel]]"));
    QCOMPARE(describe(*form.group()->layout()), QString("V[0x10, H[QLineEdit, ...], 0x10]"));
    QCOMPARE(form.dialog.layout()->contentsMargins(), QMargins(20, 20, 20, 20));
    QCOMPARE(form.dialog.layout()->spacing(), 5);
    QCOMPARE(form.dialog.minimumWidth(), 525);
    for (QLineEdit* const edit : {form.name(), form.description()}) {
        QCOMPARE(edit->contextMenuPolicy(), Qt::NoContextMenu);
        QCOMPARE(edit->minimumSize(), QSize(400, 27));
        QCOMPARE(edit->maximumSize(), QSize(400, 27));
    }
    QCOMPARE(form.executable()->contextMenuPolicy(), Qt::NoContextMenu);
    QCOMPARE(form.group()->title(), QString("Select Game Executable"));
    QCOMPARE(form.group()->styleSheet(), QString("QGroupBox { color: white; }"));
    QCOMPARE(form.browseButton()->property("uiType").toString(), QString("grayButton"));
    QCOMPARE(form.cancel()->property("uiType").toString(), QString("grayButton"));
    QVERIFY(!form.ok()->property("uiType").isValid());
    QVERIFY(form.ok()->isDefault());
    QVERIFY(!form.ok()->isEnabled());
    QVERIFY(!form.profiles()->isEnabled());
    QVERIFY(!form.lock()->isChecked());
    QVERIFY(!form.copy()->isChecked());
    QCOMPARE(form.executable()->text(), QString());
}

void EditProfileDialogTest::formWithDisplayIsLaidOutAsDesigned()
{
    setLcdDevices(1);
    const Form form;
    QCOMPARE(describe(*form.group()->layout()),
        QString("V[0x10, Browse, H[QLineEdit, ...], 0x10, Select, H[20x0, Run th]]"));
}

void EditProfileDialogTest::tabKeyGoesFromTopToBottom()
{
    setLcdDevices(1);
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&form.dialog));
    QCOMPARE(form.dialog.focusWidget(), form.name());
    int lowest = -1;
    for (int i = 0; i < 8; ++i) {
        const QWidget* const focused = form.dialog.focusWidget();
        const QPoint place = focused->mapTo(&form.dialog, QPoint(0, 0));
        // Rows from top to bottom, and within a row from left to right.
        const int order = (place.y() + focused->height() / 2) / 12 * 1000 + place.x();
        QVERIFY2(order > lowest, focused->metaObject()->className());
        lowest = order;
        QTest::keyClick(&form.dialog, Qt::Key_Tab);
    }
    QCOMPARE(form.dialog.focusWidget(), form.cancel());
}

void EditProfileDialogTest::eventsAreHeardFromConstructionToDestruction()
{
    {
        const EditProfileDialog dialog(nullptr);
        QCOMPARE(m_host->takeLog(),
            QStringList({"require LCDMon.LCDMon 1", "LCDMon.LCDMon lcdDevices() -> cLCDDeviceListPtr",
                "subscribe ProfileMgr_Events on"}));
    }
    QCOMPARE(m_host->takeLog(), QStringList("unsubscribe ProfileMgr_Events"));
}

void EditProfileDialogTest::newProfileListsProfilesToCopyFrom()
{
    m_host->answer(
        "profiles", listOf({profileRecord("{2}", "Zeta"), profileRecord("{1}", "Alpha"), cJsonValue()}));
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    QCOMPARE(form.dialog.windowTitle(), QString("New Profile"));
    QCOMPARE(form.profiles()->count(), 3);
    QCOMPARE(form.profiles()->itemText(0), QString("Zeta"));
    QCOMPARE(form.profiles()->itemData(0).toString(), QString("{2}"));
    QCOMPARE(form.profiles()->itemText(1), QString("Alpha"));
    QCOMPARE(form.profiles()->itemData(1).toString(), QString("{1}"));
    form.dialog.show();
    QVERIFY(form.copy()->isVisible());
    QVERIFY(form.profiles()->isVisible());
}

void EditProfileDialogTest::newProfileWithoutAListHasNothingToCopyFrom()
{
    m_host->answer("profiles", cJsonValue("not a list"));
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    QCOMPARE(form.profiles()->count(), 0);
    fillIn(form);
    form.copy()->click();
    form.ok()->click();
    // There is no current profile, so an unknown one is asked for.
    QVERIFY(m_host->takeCalls().contains("getProfileByID(\"\")"));
    QCOMPARE(stored("addProfile")["name"].toString(), QString("Mine"));
}

void EditProfileDialogTest::newProfileIsStoredWithAnIdOfItsOwn()
{
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.description()->setText("About it");
    form.lock()->click();
    form.dialog.show();
    m_host->takeLog();
    form.ok()->click();
    QVERIFY(!form.dialog.isVisible());

    const cJsonValue record = stored("addProfile");
    const QUuid uid(record["uid"].toString());
    QVERIFY(!uid.isNull());
    cJsonValue expected;
    expected["name"] = "Mine";
    expected["description"] = "About it";
    expected["uid"] = uid.toString().toUpper();
    expected["target"] = existingFile();
    expected["script"] = "";
    expected["uselcd"] = false;
    expected["lock"] = true;
    QCOMPARE(record, expected);
    const QStringList log = m_host->takeLog();
    QCOMPARE(log.size(), 4);
    QCOMPARE(log[1], QString("Profiler.ProfileMgr profiles() -> cJsonValue"));
    QVERIFY(log[3].startsWith("Profiler.ProfileMgr addProfile(const cJsonValue "));
}

void EditProfileDialogTest::editFillsTheForm()
{
    setLcdDevices(1);
    cJsonValue record = profileRecord(OwnId, "Mine");
    record["description"] = "About it";
    record["target"] = "/games/mine.exe";
    record["uselcd"] = true;
    record["lock"] = true;
    Form form;
    form.dialog.setProfile(record, false);
    QCOMPARE(form.dialog.windowTitle(), QString("Edit Profile"));
    QCOMPARE(form.name()->text(), QString("Mine"));
    QCOMPARE(form.description()->text(), QString("About it"));
    QCOMPARE(form.executable()->text(), QString("/games/mine.exe"));
    QVERIFY(form.select()->isChecked());
    QVERIFY(!form.browse()->isChecked());
    QVERIFY(form.lock()->isChecked());
    QVERIFY(form.ok()->isEnabled());

    Form plain;
    plain.dialog.setProfile(profileRecord(OwnId, "Plain"), false);
    QVERIFY(plain.browse()->isChecked());
    QVERIFY(!plain.lock()->isChecked());
}

void EditProfileDialogTest::editHasNothingToCopyFrom()
{
    Form form;
    form.dialog.setProfile(profileRecord(OwnId, "Mine"), false);
    form.dialog.show();
    QVERIFY(!form.copy()->isVisible());
    QVERIFY(!form.profiles()->isVisible());
    QCOMPARE(form.profiles()->count(), 0);
}

void EditProfileDialogTest::editKeepsWhatTheFormDoesNotShow()
{
    cJsonValue record = profileRecord(OwnId, "Mine");
    record["deviceid"] = "device";
    record["script"] = "print()";
    record["future"]["key"] = 5;
    Form form;
    form.dialog.setProfile(record, false);
    form.name()->setText("Renamed");
    form.executable()->setText(existingFile());
    form.ok()->click();
    record["name"] = "Renamed";
    record["description"] = "";
    record["target"] = existingFile();
    record["uselcd"] = false;
    record["lock"] = false;
    QCOMPARE(stored("editProfileProperty"), record);
    QVERIFY(stored("addProfile").isNull());
}

void EditProfileDialogTest::saveAsStartsBlankAndKeepsOnlyFiveKeys()
{
    cJsonValue record = profileRecord(OwnId, "Mine");
    record["description"] = "About it";
    record["target"] = "/games/mine.exe";
    record["script"] = "print()";
    record["deviceid"] = "device";
    record["macros"].append(cJsonValue("macro"));
    record["lock"] = true;
    Form form;
    form.dialog.setProfile(record, true);
    QCOMPARE(form.dialog.windowTitle(), QString("Save As"));
    QCOMPARE(form.name()->text(), QString());
    QCOMPARE(form.description()->text(), QString());
    QCOMPARE(form.executable()->text(), QString());
    QVERIFY(!form.lock()->isChecked());
    form.dialog.show();
    QVERIFY(!form.copy()->isVisible());
    QVERIFY(!form.profiles()->isVisible());
    QVERIFY(!form.ok()->isEnabled());

    fillIn(form);
    form.ok()->click();
    const cJsonValue stored = this->stored("addProfile");
    const QUuid uid(stored["uid"].toString());
    QVERIFY(!uid.isNull());
    QVERIFY(stored["uid"].toString() != OwnId);
    cJsonValue expected;
    expected["name"] = "Mine";
    expected["uid"] = uid.toString().toUpper();
    expected["description"] = "";
    expected["target"] = existingFile();
    expected["script"] = "print()";
    expected["uselcd"] = false;
    expected["lock"] = false;
    QCOMPARE(stored, expected);
}

void EditProfileDialogTest::okIsEnabledByName_data()
{
    QTest::addColumn<int>("devices");
    QTest::addColumn<bool>("select");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("enabled");

    QTest::newRow("no display, name") << 0 << false << "Mine" << true;
    QTest::newRow("no display, no name") << 0 << false << "" << false;
    QTest::newRow("no display, blank") << 0 << false << " " << true;
    QTest::newRow("browse, name") << 1 << false << "Mine" << true;
    QTest::newRow("browse, no name") << 1 << false << "" << false;
    QTest::newRow("select, name") << 1 << true << "Mine" << true;
    QTest::newRow("select, no name") << 1 << true << "" << true;
}

void EditProfileDialogTest::okIsEnabledByName()
{
    QFETCH(int, devices);
    QFETCH(bool, select);
    QFETCH(QString, name);
    QFETCH(bool, enabled);
    setLcdDevices(devices);
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    if (select)
        form.select()->click();
    form.name()->setText("Something else");
    QVERIFY(form.ok()->isEnabled());
    form.name()->setText(name);
    QCOMPARE(form.ok()->isEnabled(), enabled);
}

void EditProfileDialogTest::radioButtonsEnableTheExecutable()
{
    setLcdDevices(1);
    const Form form;
    QVERIFY(form.executable()->isEnabled());
    form.select()->click();
    QVERIFY(!form.executable()->isEnabled());
    QVERIFY(!form.browseButton()->isEnabled());
    form.browse()->click();
    QVERIFY(form.executable()->isEnabled());
    QVERIFY(form.browseButton()->isEnabled());
}

void EditProfileDialogTest::copyCheckEnablesTheCombo()
{
    const Form form;
    form.copy()->click();
    QVERIFY(form.profiles()->isEnabled());
    form.copy()->click();
    QVERIFY(!form.profiles()->isEnabled());
}

void EditProfileDialogTest::wrongFormIsToldAndStaysOpen_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("executable");
    QTest::addColumn<QString>("told");

    QTest::newRow("no name")
        << ""
        << ""
        << R"(info("Profile Name Error", "You need to specify a name for the profile."))";
    QTest::newRow("taken name")
        << "Other"
        << ""
        << R"(info("Profile Name Error", "A profile with that name already exists."))";
    QTest::newRow("no executable")
        << "Mine"
        << ""
        << R"(info("Missing Target Error", "You need to specify the executable."))";
    QTest::newRow("missing executable") << "Mine"
                                        << "/none/game.exe"
                                        << R"(info("Profile Properties", "/none/game.exe does not exist."))";
    QTest::newRow("percent sign") << "Mine"
                                  << "/none/%1.exe"
                                  << R"(info("Profile Properties", "/none/%1.exe does not exist."))";
}

void EditProfileDialogTest::wrongFormIsToldAndStaysOpen()
{
    QFETCH(QString, name);
    QFETCH(QString, executable);
    QFETCH(QString, told);
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    form.name()->setText(name);
    form.executable()->setText(executable);
    form.dialog.show();
    m_host->takeCalls();
    // Also when the button is disabled, since its state follows the name alone.
    QVERIFY(QMetaObject::invokeMethod(&form.dialog, "OnOK"));
    QVERIFY(form.dialog.isVisible());
    QStringList calls = m_host->takeCalls();
    QCOMPARE(calls.takeLast(), told);
    calls.removeAll("profiles()");
    QCOMPARE(calls, QStringList());

    // What was wrong can be mended in the open form.
    fillIn(form);
    form.ok()->click();
    QVERIFY(!form.dialog.isVisible());
    QCOMPARE(stored("addProfile")["name"].toString(), QString("Mine"));
}

void EditProfileDialogTest::nameIsTaken_data()
{
    QTest::addColumn<cJsonValue>("own");
    QTest::addColumn<cJsonValue>("other");
    QTest::addColumn<bool>("isTaken");

    const auto onDevice = [](cJsonValue record, const QString& device) {
        record["deviceid"] = device;
        return record;
    };
    const cJsonValue own = profileRecord(OwnId, "Own");
    const cJsonValue other = profileRecord(OtherId, "Mine");
    QTest::newRow("both local") << own << other << true;
    QTest::newRow("both on a device") << onDevice(own, "a") << onDevice(other, "b") << true;
    QTest::newRow("other on a device") << own << onDevice(other, "a") << false;
    QTest::newRow("own on a device") << onDevice(own, "a") << other << false;
    QTest::newRow("empty device counts as local") << own << onDevice(other, "") << true;
    QTest::newRow("empty device of the own") << onDevice(own, "") << other << true;
    QTest::newRow("the own record") << own << profileRecord(OwnId, "Mine") << false;
    QTest::newRow("another case") << own << profileRecord(OtherId, "mine") << false;
    QTest::newRow("another name") << own << profileRecord(OtherId, "Mine 2") << false;
}

void EditProfileDialogTest::nameIsTaken()
{
    QFETCH(cJsonValue, own);
    QFETCH(cJsonValue, other);
    QFETCH(bool, isTaken);
    m_host->answer("profiles", listOf({profileRecord("{}", "First"), other}));
    Form form;
    form.dialog.setProfile(own, false);
    fillIn(form);
    form.ok()->click();
    const bool wasTold = m_host->takeCalls().contains(
        R"(info("Profile Name Error", "A profile with that name already exists."))");
    QCOMPARE(wasTold, isTaken);
    QCOMPARE(stored("editProfileProperty").isNull(), isTaken);
}

void EditProfileDialogTest::nameIsFreeWhenThereIsNoList()
{
    m_host->answer("profiles", profileRecord(OtherId, "Mine"));
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.ok()->click();
    QVERIFY(!stored("addProfile").isNull());
}

void EditProfileDialogTest::selectedDisplayNeedsNoExecutable()
{
    setLcdDevices(1);
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    form.name()->setText("Mine");
    form.executable()->setText("/none/game.exe");
    form.select()->click();
    form.ok()->click();
    const cJsonValue record = stored("addProfile");
    QCOMPARE(record["target"], cJsonValue(""));
    QCOMPARE(record["uselcd"], cJsonValue(true));
}

void EditProfileDialogTest::withoutDisplayUseLcdIsFalse()
{
    cJsonValue record = profileRecord(OwnId, "Mine");
    record["uselcd"] = true;
    Form form;
    form.dialog.setProfile(record, false);
    form.executable()->setText(existingFile());
    form.ok()->click();
    QCOMPARE(stored("editProfileProperty")["uselcd"], cJsonValue(false));
    QCOMPARE(stored("editProfileProperty")["target"], cJsonValue(existingFile()));
}

void EditProfileDialogTest::selectedDisplayWithoutNameIsCaughtByOk()
{
    setLcdDevices(1);
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    form.name()->setText("M");
    form.select()->click();
    form.name()->clear();
    QVERIFY(form.ok()->isEnabled());
    m_host->takeCalls();
    form.dialog.show();
    form.ok()->click();
    QCOMPARE(m_host->takeCalls(),
        QStringList(R"(info("Profile Name Error", "You need to specify a name for the profile."))"));
    QVERIFY(form.dialog.isVisible());
}

void EditProfileDialogTest::copyTakesTheWholeRecordUnderANewId()
{
    cJsonValue source = profileRecord("{2}", "Source");
    source["macros"].append(profileRecord("{M}", "macro"));
    source["assignments"]["Mouse"].append(profileRecord("{A}", "assignment"));
    source["script"] = "print()";
    source["description"] = "of the source";
    m_host->answer("profiles", listOf({profileRecord("{1}", "First"), source}));
    m_host->answer("getProfileByID", source);
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.copy()->click();
    form.profiles()->setCurrentIndex(1);
    form.ok()->click();
    QVERIFY(m_host->takeCalls().contains("getProfileByID(\"{2}\")"));

    const cJsonValue record = stored("addProfile");
    const QUuid uid(record["uid"].toString());
    QVERIFY(!uid.isNull());
    cJsonValue expected = source;
    expected["uid"] = uid.toString().toUpper();
    expected["name"] = "Mine";
    expected["description"] = "";
    expected["target"] = existingFile();
    expected["uselcd"] = false;
    expected["lock"] = false;
    QCOMPARE(record, expected);
}

void EditProfileDialogTest::copyOfAProfileThatHasGoneHasNoId()
{
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.copy()->click();
    form.ok()->click();
    const cJsonValue record = stored("addProfile");
    QVERIFY(!record.contains("uid"));
    QCOMPARE(record["name"].toString(), QString("Mine"));
    QCOMPARE(record["target"].toString(), existingFile());
}

void EditProfileDialogTest::resultOfTheHostIsNotRead()
{
    m_host->answer("addProfile", false);
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.dialog.show();
    form.ok()->click();
    QVERIFY(!form.dialog.isVisible());
}

void EditProfileDialogTest::cancelStoresNothing_data()
{
    QTest::addColumn<QString>("way");

    QTest::newRow("button") << "button";
    QTest::newRow("escape") << "escape";
    QTest::newRow("close") << "close";
}

void EditProfileDialogTest::cancelStoresNothing()
{
    QFETCH(QString, way);
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    fillIn(form);
    form.dialog.show();
    m_host->takeCalls();
    if (way == "button")
        form.cancel()->click();
    else if (way == "escape")
        QTest::keyClick(&form.dialog, Qt::Key_Escape);
    else
        form.dialog.close();
    QVERIFY(!form.dialog.isVisible());
    QCOMPARE(form.dialog.result(), int(QDialog::Rejected));
    QCOMPARE(m_host->takeCalls(), QStringList());
}

void EditProfileDialogTest::deletionElsewhereClosesTheDialog_data()
{
    QTest::addColumn<cJsonValue>("record");
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<bool>("closes");

    const cJsonValue record = profileRecord(OwnId, "Mine");
    QTest::newRow("the edited one") << record << OwnId << true;
    QTest::newRow("the edited one in another case") << record << OwnId.toLower() << true;
    QTest::newRow("another one") << record << OtherId << false;
    cJsonValue withoutId;
    withoutId["name"] = "Mine";
    QTest::newRow("no id") << withoutId << "" << false;
    QTest::newRow("a new profile") << cJsonValue() << OtherId << false;
}

void EditProfileDialogTest::deletionElsewhereClosesTheDialog()
{
    QFETCH(cJsonValue, record);
    QFETCH(QString, deleted);
    QFETCH(bool, closes);
    Form form;
    form.dialog.setProfile(record, false);
    form.dialog.show();
    m_host->takeCalls();
    m_host->publishProfileDeleted(deleted);
    QCOMPARE(form.dialog.isVisible(), !closes);
    QCOMPARE(m_host->takeCalls(), QStringList());
}

void EditProfileDialogTest::deletionWhileAMessageIsOpenClosesTheDialog()
{
    m_host->answer("info", [this](const RecordedCall&) { m_host->publishProfileDeleted(OwnId); });
    Form form;
    form.dialog.setProfile(profileRecord(OwnId, ""), false);
    form.dialog.show();
    QVERIFY(QMetaObject::invokeMethod(&form.dialog, "OnOK"));
    QVERIFY(!form.dialog.isVisible());
    QVERIFY(stored("editProfileProperty").isNull());
}

/// Waits for the file dialog and works it; returns when it is closed.
static void withFileDialog(const Form& form, const std::function<void(QFileDialog&)>& work)
{
    QTimer timer;
    bool hasCome = false;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            timer.stop();
            hasCome = true;
            work(*dialog);
        }
    });
    timer.start(10);
    form.browseButton()->click();
    QVERIFY(hasCome);
}

void EditProfileDialogTest::browsePutsTheChosenFileIntoTheForm()
{
    const Form form;
    form.executable()->setText(m_folder->path());
    withFileDialog(form, [this](QFileDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QString("Open"));
        QCOMPARE(dialog.nameFilters(), QStringList({"Executables (*.exe)", "All Files (*.*)"}));
        QCOMPARE(dialog.fileMode(), QFileDialog::ExistingFile);
        dialog.findChild<QLineEdit*>("fileNameEdit")->setText(existingFile());
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    QCOMPARE(form.executable()->text(), QDir::toNativeSeparators(existingFile()));
}

void EditProfileDialogTest::browseBeginsWhereTheExecutableIs_data()
{
    QTest::addColumn<bool>("isEmpty");

    QTest::newRow("nothing chosen yet") << true;
    QTest::newRow("something chosen") << false;
}

void EditProfileDialogTest::browseBeginsWhereTheExecutableIs()
{
    QFETCH(bool, isEmpty);
    const QString home = qEnvironmentVariable("HOME");
    qputenv("HOME", m_folder->path().toLocal8Bit());
    const QString applications = QStandardPaths::writableLocation(QStandardPaths::ApplicationsLocation);
    QVERIFY(QDir().mkpath(applications));
    const Form form;
    form.executable()->setText(isEmpty ? QString() : existingFile());
    withFileDialog(form, [&](QFileDialog& dialog) {
        QCOMPARE(QDir(dialog.directory().path()).canonicalPath(),
            QDir(isEmpty ? applications : m_folder->path()).canonicalPath());
        dialog.reject();
    });
    qputenv("HOME", home.toLocal8Bit());
}

void EditProfileDialogTest::cancelledBrowseChangesNothing()
{
    const Form form;
    form.executable()->setText("/games/mine.exe");
    withFileDialog(form, [](QFileDialog& dialog) { dialog.reject(); });
    QCOMPARE(form.executable()->text(), QString("/games/mine.exe"));
}

void EditProfileDialogTest::helpKeyOpensThePage()
{
    Form form;
    form.dialog.show();
    m_host->takeLog();
    QTest::keyClick(&form.dialog, Qt::Key_F1);
    QCOMPARE(m_host->takeLog(),
        QStringList({"require Help.HelpMgr 1",
            R"(Help.HelpMgr LaunchHelp(QString "com.veltrano.profile", QString "create_new_profile.htm"))"}));
    QVERIFY(form.dialog.isVisible());
}

void EditProfileDialogTest::enterAcceptsWhatIsComplete()
{
    Form form;
    form.dialog.setProfile(cJsonValue(), false);
    form.dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&form.dialog));
    QTest::keyClick(form.name(), Qt::Key_Return);
    QVERIFY(form.dialog.isVisible());
    QTest::keyClicks(form.name(), "Mine");
    form.executable()->setText(existingFile());
    QTest::keyClick(form.name(), Qt::Key_Return);
    QVERIFY(!form.dialog.isVisible());
    QCOMPARE(stored("addProfile")["name"].toString(), QString("Mine"));
}

VELTRANO_TEST_MAIN(EditProfileDialogTest)
#include "EditProfileDialogTest.moc"
