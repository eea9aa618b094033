#include "EditorTestCase.h"

#include <FixedIds.h>
#include <JsonText.h>
#include <KeyCaptureButton.h>
#include <KeyStepModel.h>
#include <MacroTypeIds.h>
#include <MacroTypes.h>

#include <QKeyEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

class IgnoringSink : public IInputSink
{
public:
    void send(const InputEvent&) override { }
};

} // namespace

cMacroTypePtr EditorTestCase::typeOf(const QString& uid)
{
    for (const cMacroTypePtr& type : MacroTypes::all(std::make_shared<IgnoringSink>())) {
        if (type->info()["uid"].toString() == uid)
            return type;
    }
    return {};
}

cJsonValue EditorTestCase::json(const QByteArray& text)
{
    cJsonValue value;
    HVS::fromJsonText(text, value);
    return value;
}

cJsonValue EditorTestCase::record(const QString& uid, const cJsonValue& data, const QString& name)
{
    cJsonValue macro;
    macro["uid"] = "{1}";
    macro["name"] = name;
    macro["display_name"] = name;
    macro["namespace"] = uid;
    macro["data"] = data;
    return macro;
}

QByteArray EditorTestCase::text(const cJsonValue& value)
{
    return HVS::toJsonText(value);
}

IMacroEditor* EditorTestCase::open(const QString& uid, const cJsonValue& macro)
{
    m_dialog = std::make_unique<QDialog>();
    m_changes = 0;
    m_name = new QLineEdit(macro["display_name"].toString());
    m_name->setProperty("uiType", "meLineEdit");
    auto* const ok = new QPushButton("OK");
    ok->setDefault(true);
    auto* const layout = new QVBoxLayout(m_dialog.get());
    layout->addWidget(m_name);
    m_page = typeOf(uid)->editor(macro);
    connect(m_page, SIGNAL(nameChanged(QString)), this, SLOT(onNameChanged(QString)));
    layout->addWidget(m_page);
    layout->addWidget(ok);
    m_dialog->show();
    if (!QTest::qWaitForWindowActive(m_dialog.get()))
        qFatal("the dialog does not come up");
    return m_page;
}

void EditorTestCase::fillIn(const QString& uid)
{
    if (uid == MacroTypeIds::Keystroke || uid == MacroTypeIds::MultiKey) {
        m_page->findChild<KeyCaptureButton*>()->click();
        tap(Qt::Key_A, 100);
        m_page->findChild<KeyCaptureButton*>()->stop();
    } else if (uid == MacroTypeIds::TextBlock) {
        QTest::keyClicks(m_page->findChild<QPlainTextEdit*>(), "Hello there");
    } else if (uid == MacroTypeIds::Launch) {
        QTest::keyClicks(field<QLineEdit>("Program or file"), "/bin/sh");
    } else if (uid == MacroTypeIds::Script) {
        QTest::keyClicks(field<QLineEdit>("Function"), "reload");
    } else {
        auto* const list = m_page->findChild<QTreeWidget*>();
        QTest::keyClick(list, Qt::Key_Home);
    }
}

QPushButton* EditorTestCase::button(const QString& shown)
{
    for (QPushButton* each : m_page->findChildren<QPushButton*>()) {
        if (each->text().remove('&') == shown)
            return each;
    }
    return nullptr;
}

QString EditorTestCase::message()
{
    for (QLabel* label : m_page->findChildren<QLabel*>()) {
        if (label->property("uiType") == "meMessage" && !label->isHidden())
            return label->text();
    }
    return QString();
}

void EditorTestCase::sendKey(QEvent::Type type, int key, ulong time, Qt::KeyboardModifiers modifiers)
{
    QKeyEvent event(type, key, modifiers, 0, 0, 0);
    event.setTimestamp(time);
    QCoreApplication::sendEvent(m_page->findChild<KeyCaptureButton*>(), &event);
}

void EditorTestCase::tap(int key, ulong time)
{
    sendKey(QEvent::KeyPress, key, time);
    sendKey(QEvent::KeyRelease, key, time + 10);
}

QString EditorTestCase::steps()
{
    QStringList rows;
    for (const KeyStep& step : m_page->findChild<KeyStepModel*>()->steps())
        rows << (step.isPress ? "+" : "-") + KeyNames::toText(step.key.code) + QString::number(step.delay);
    return rows.join(' ');
}
