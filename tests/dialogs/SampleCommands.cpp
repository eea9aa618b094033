#include "SampleCommands.h"

#include <FixedIds.h>
#include <MacroTypeIds.h>

cJsonValue SampleCommands::data(const QString& typeId)
{
    cJsonValue data;
    if (typeId == MacroTypeIds::Keystroke) {
        data["keys"] = "Ctrl+Shift+A";
    } else if (typeId == MacroTypeIds::MultiKey) {
        for (int i = 0; i < 12; ++i) {
            cJsonValue event;
            event["type"] = i % 2 ? "release" : "press";
            event["key"] = QString(QChar('A' + i / 2));
            event["delay"] = i * 40;
            data["events"].append(event);
        }
    } else if (typeId == MacroTypeIds::TextBlock) {
        data["text"] = "Good game, everyone!\nSame time tomorrow?";
    } else if (typeId == MacroTypeIds::Launch) {
        data["path"] = "/usr/bin/env";
        data["arguments"] = "--help";
    } else if (typeId == MacroTypeIds::Script) {
        data["function"] = "reload";
        data["argument"] = "fast";
    } else if (typeId == MacroNamespaces::MouseFunction) {
        data["function"] = "Right Click";
    } else if (typeId == MacroNamespaces::Media) {
        data["function"] = "Volume Up";
    } else if (typeId == MacroNamespaces::Hotkeys) {
        data["function"] = "Copy";
    }
    return data;
}

cJsonValue SampleCommands::record(const QString& typeId, const QString& uid, const QString& name)
{
    cJsonValue macro;
    macro["uid"] = uid;
    macro["name"] = name;
    macro["display_name"] = name;
    macro["namespace"] = typeId;
    macro["hidden"] = false;
    macro["data"] = data(typeId);
    return macro;
}
