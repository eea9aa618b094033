#include "CommandEditorTestCase.h"

#include <cMacroBindingView.h>
#include <FixedIds.h>
#include <JsonText.h>

#include <QIntValidator>
#include <QRegularExpression>

void CommandEditorTestCase::init()
{
    m_host = std::make_unique<CommandEditorHost>(IMacroTypePtrList());
    m_keys.reset(new FakeMacroType(*m_host, TestIds::Keys, "Keys"));
    m_hidden.reset(new FakeMacroType(*m_host, TestIds::Hidden, "Hidden"));
    m_hidden->hides = true;
    m_text.reset(new FakeMacroType(*m_host, TestIds::Text, "Text"));
    m_media.reset(new FakeMacroType(*m_host, MacroNamespaces::Media, "Media"));
    m_media->showsName = false;
    m_host->setTypes({m_keys, m_hidden, m_text, m_media});
    m_host->showProfile(TestIds::Profile);
}

void CommandEditorTestCase::cleanup()
{
    m_page.reset();
    for (auto* type : {&m_keys, &m_text, &m_media, &m_hidden})
        type->reset();
    m_host.reset();
}

void CommandEditorTestCase::cleanupTestCase()
{
    const RecordingHost host;
    delete cMacroBindingView::instance();
    TestCase::cleanupTestCase();
}

cJsonValue CommandEditorTestCase::json(const QByteArray& text)
{
    cJsonValue value;
    HVS::fromJsonText(text, value);
    return value;
}

cJsonValue CommandEditorTestCase::record(const QString& typeId, const QString& name)
{
    cJsonValue macro;
    macro["uid"] = "{1}";
    macro["name"] = name;
    macro["display_name"] = name;
    macro["namespace"] = typeId;
    macro["data"] = 5;
    return macro;
}

QStringList CommandEditorTestCase::takeLog()
{
    const QStringList calls = m_host->takeCalls();
    // In capitals, as ids that are made here have to be.
    static const QRegularExpression newUid("\\{[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}\\}");
    int call = 0;
    QStringList lines;
    for (const QString& line : m_host->takeLog()) {
        if (line.startsWith("require "))
            continue;
        // Notes are a type and what it is asked; all other lines are calls.
        const bool isNote = line.startsWith("urn:") || line.startsWith("http:") || line.startsWith("signal ");
        lines.append(QString(isNote ? line : calls.value(call++)).replace(newUid, "{NEW}"));
    }
    return lines;
}

cJsonValue CommandEditorTestCase::sentRecord(const QString& operation) const
{
    for (auto call = m_host->calls().rbegin(); call != m_host->calls().rend(); ++call) {
        if (call->operation == operation)
            return call->values.constLast().value<cJsonValue>();
    }
    return {};
}

cMacroEditPage& CommandEditorTestCase::openPage(const cJsonValue& macro, bool withAddButton)
{
    m_page = std::make_unique<cMacroEditPage>(macro, nullptr, withAddButton);
    m_page->show();
    return *m_page;
}

void CommandEditorTestCase::listen()
{
    connect(m_page.get(), SIGNAL(accepted(int)), this, SLOT(onAccepted(int)));
    connect(m_page.get(), SIGNAL(rejected(int)), this, SLOT(onRejected(int)));
    connect(m_page.get(), SIGNAL(macroEditorClosed(QString)), this, SLOT(onMacroEditorClosed(QString)));
}

QLineEdit& CommandEditorTestCase::delay()
{
    return *static_cast<QLineEdit*>(m_page->findChild<QIntValidator*>()->parent());
}

QString CommandEditorTestCase::savers()
{
    QStringList enabled;
    if (okButton().isEnabled())
        enabled << "OK";
    if (grayButton("Add") && grayButton("Add")->isEnabled())
        enabled << "Add";
    return enabled.join(' ');
}
