#pragma once

#include <IMacroEditor.h>
#include <IMacroType.h>

#include <QList>
#include <QPointer>
#include <QString>

class RecordingHost;

/// A form that answers what the test sets and notes in the host's log what it is asked.
class FakeEditor : public IMacroEditor
{
    Q_OBJECT

public:
    FakeEditor(RecordingHost& host, const QString& typeId, const cJsonValue& macro);

    cJsonValue data() override { return content; }
    QString getMacroTypeID() override { return m_typeId; }
    bool showMacroName() override { return showsName; }
    QString defaultMacroName() override { return fixedName; }
    void setMacroName(QString macroName) override;
    bool onOK() override;
    bool onCancel() override;
    void onHelp() override;
    void onClearForm() override;
    bool canAddMacro() override
    {
        ++timesAsked;
        return isFilled;
    }

    /// As if the user had changed the form.
    void propose(const QString& name) { emit nameChanged(name); }

    /// What it was made for.
    cJsonValue record;
    cJsonValue content;
    bool showsName = true;
    QString fixedName;
    bool isRight = true;
    bool canBeLeft = true;
    bool isFilled = true;
    /// How often it was asked whether it is filled.
    int timesAsked = 0;
    /// As if the host took the form away while a message stands.
    bool goesDuringCheck = false;

private:
    void note(const QString& what);

    RecordingHost& m_host;
    QString m_typeId;
};

/// A command type with FakeEditors.
class FakeMacroType : public IMacroType
{
    Q_OBJECT

public:
    FakeMacroType(RecordingHost& host, const QString& typeId, const QString& displayName);

    cJsonValue info() override;
    IMacroEditor* editor(cJsonValue macroData) override;
    cJsonValue XmlToJson(QDomElement) override { return {}; }
    QDomElement JsonToXml(QDomDocument, cJsonValue) override { return {}; }
    cPlayStatePtr createPlayState(cJsonValue) override { return {}; }
    bool isRepeatable() override { return repeats; }
    bool isPrivate() override { return hides; }
    bool isFixedName() override { return false; }
    int getPriority() override { return 0; }

    bool repeats = true;
    bool hides = false;
    /// Of the forms that it makes.
    bool showsName = true;
    bool hasForm = true;
    QString iconPath;
    /// The form that was made last.
    QPointer<FakeEditor> form;

private:
    RecordingHost& m_host;
    QString m_typeId;
    QString m_displayName;
};
