#pragma once

#include "CommandEditorTestCase.h"

#include <FixedIds.h>
#include <JsonText.h>

/// Base of the tests of how the edit page stores commands: each road with all its calls in order.
class MacroSavingTestCase : public CommandEditorTestCase
{
    Q_OBJECT

protected:
    static inline const QString Media = MacroNamespaces::Media;

    /// A built-in command of the host.
    void offer(const QString& uid)
    {
        cJsonValue found;
        found["uid"] = uid;
        host().answer("getMacroByTypeAndName", found);
    }
    /// Opens the page of a new command, with its form.
    void openNew(int place)
    {
        openPage();
        listen();
        page().changePage(place);
        takeLog();
    }
    void openEdit(const cJsonValue& macro, int place)
    {
        openPage(macro);
        listen();
        page().changePage(place);
        takeLog();
    }
    static QString mediaNote(const char* what) { return Media + ": " + what; }
    static QString lookup(const QString& name)
    {
        return QString("getMacroByTypeAndName(\"{PROFILE}\", \"%1\", \"%2\", false)").arg(Media, name);
    }
    /// A call that hands over a record.
    static QString call(const char* operation, const cJsonValue& macro)
    {
        return QString("%1(\"{PROFILE}\", %2)").arg(operation, QString::fromUtf8(HVS::toJsonText(macro)));
    }
    static QString permission(const cJsonValue& macro)
    {
        return "canMacroBeChangedTo(\"{PROFILE}\", \"{1}\", " + QString::fromUtf8(HVS::toJsonText(macro))
            + ")";
    }
    static cJsonValue saved(const char* uid, const QString& typeId, const char* name, const cJsonValue& data)
    {
        cJsonValue macro = record(typeId, name);
        macro["uid"] = uid;
        macro["data"] = data;
        return macro;
    }
    static cJsonValue added(const QString& typeId, const char* name, const cJsonValue& data)
    {
        cJsonValue macro = saved("{NEW}", typeId, name, data);
        macro["hidden"] = false;
        return macro;
    }
};
