#pragma once

#include <IProfiler.h>

#include <QHash>

class ICommandPlayer;

/// The service "Profiler.Profiler": keys and M states as text, and the M state of each device category.
///
/// Key n has the context id "G" and n. M states live as long as the application; each category begins in the
/// first.
class cProfilerService : public IProfiler
{
    Q_OBJECT
    Q_CLASSINFO("service", "Profiler.Profiler")

public:
    using IProfiler::IProfiler;

    /// Who plays the commands; null for nobody.
    void setPlayer(ICommandPlayer* player) { m_player = player; }

    QString toContextId(GKey::GKey_t gkey) override;
    QString toContextId(GenericButton::GenericButton_t button) override;
    GKey::GKey_t stringToGKey(const QString& name) override;
    QString gKeyToString(GKey::GKey_t gkey) override;
    MKey::MKey_t stringToMKey(const QString& name) override;
    QString mKeyToString(MKey::MKey_t mkey) override;
    MKey::MKey_t getMState(const QString& category) override;
    /// False for an M state that is none, or that the category is in already.
    bool setMState(const QString& category, MKey::MKey_t mkey) override;
    bool playScriptingMacroByName(const QString& profileID, const QString& macroName) override;
    bool abortScriptingMacro() override;

private:
    QHash<QString, MKey::MKey_t> m_states;
    ICommandPlayer* m_player = nullptr;
};
