#pragma once

#include <IProfilePrinter.h>

#include <QDomElement>

class cDevMgrService;
class IMainUI;

/// Prints profiles from a window with a preview.
class cProfilePrinter : public IProfilePrinter
{
public:
    /// Both outlive it.
    cProfilePrinter(cDevMgrService& devices, IMainUI& mainUI)
        : m_devices(devices)
        , m_mainUI(mainUI)
    { }
    ~cProfilePrinter() = default;

    void print(const Profile& profile, const QString& deviceCategory, const QStringList& keys) override;

private:
    /// The manifest of a device of the category, of the one that is shown if it is of it.
    QDomElement manifestFor(const QString& category) const;

    cDevMgrService& m_devices;
    IMainUI& m_mainUI;
};
