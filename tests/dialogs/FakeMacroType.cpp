#include "FakeMacroType.h"

#include <RecordingHost.h>

FakeEditor::FakeEditor(RecordingHost& host, const QString& typeId, const cJsonValue& macro)
    : record(macro)
    , content(macro["data"])
    , m_host(host)
    , m_typeId(typeId)
{
    setFocusPolicy(Qt::StrongFocus);
}

void FakeEditor::setMacroName(QString macroName)
{
    note(QStringLiteral("setMacroName ") + macroName);
}

bool FakeEditor::onOK()
{
    note(QStringLiteral("onOK"));
    const bool answer = isRight;
    if (goesDuringCheck)
        delete this;
    return answer;
}

bool FakeEditor::onCancel()
{
    note(QStringLiteral("onCancel"));
    return canBeLeft;
}

void FakeEditor::onHelp()
{
    note(QStringLiteral("onHelp"));
}

void FakeEditor::onClearForm()
{
    note(QStringLiteral("onClearForm"));
}

void FakeEditor::note(const QString& what)
{
    m_host.note(m_typeId + QLatin1String(": ") + what);
}

FakeMacroType::FakeMacroType(RecordingHost& host, const QString& typeId, const QString& displayName)
    : m_host(host)
    , m_typeId(typeId)
    , m_displayName(displayName)
{ }

cJsonValue FakeMacroType::info()
{
    cJsonValue info;
    info["uid"] = m_typeId;
    info["displayname"] = m_displayName;
    info["iconpath"] = iconPath;
    return info;
}

IMacroEditor* FakeMacroType::editor(cJsonValue macroData)
{
    if (!hasForm)
        return nullptr;
    form = new FakeEditor(m_host, m_typeId, macroData);
    form->showsName = showsName;
    return form;
}
