#pragma once

#include <IMacroType.h>
#include <RecordingHost.h>

#include <QString>

class cMacroBindingView;

/// A recording host that has command types and allows every change of a command.
class CommandEditorHost : public RecordingHost
{
public:
    /// With the types of the application.
    CommandEditorHost();
    explicit CommandEditorHost(const IMacroTypePtrList& types);

    const IMacroTypePtrList& types() const { return m_types; }
    /// From now on the host has these types.
    void setTypes(const IMacroTypePtrList& types) { m_types = types; }

    /// Makes `profile` the one that the view shows, and forgets the calls that this took.
    void showProfile(const QString& profile);

private:
    IMacroTypePtrList m_types;
};
