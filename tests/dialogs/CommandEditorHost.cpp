#include "CommandEditorHost.h"

#include <cMacroBindingView.h>
#include <IInputSink.h>
#include <MacroTypes.h>

#include <memory>

namespace {

class IgnoringSink : public IInputSink
{
public:
    void send(const InputEvent&) override { }
};

} // namespace

CommandEditorHost::CommandEditorHost()
    : CommandEditorHost(MacroTypes::all(std::make_shared<IgnoringSink>()))
{ }

CommandEditorHost::CommandEditorHost(const IMacroTypePtrList& types)
    : m_types(types)
{
    answer("getAllMacroTypes", [this](const RecordedCall&) { return QVariant::fromValue(m_types); });
    answer("getMacroTypeByID", [this](const RecordedCall& call) {
        for (const cMacroTypePtr& type : qAsConst(m_types)) {
            if (type && type->info()["uid"].toString() == call.values.constFirst().toString())
                return QVariant::fromValue(type);
        }
        return QVariant::fromValue(cMacroTypePtr());
    });
    answer("canMacroBeChangedTo", true);
}

void CommandEditorHost::showProfile(const QString& profile)
{
    QMetaObject::invokeMethod(
        cMacroBindingView::instance(), "onProfileSelectionChanging", Q_ARG(QString, profile));
    clear();
}
