#include "cProfileMgrService.h"

using namespace ProfileChanges;

namespace {

const cPointerProperties* stored(const Profile* profile, const QString& deviceModel)
{
    if (!profile)
        return nullptr;
    const auto found = profile->pointers.find(deviceModel);
    return found == profile->pointers.end() ? nullptr : &found->second;
}

} // namespace

void cProfileMgrService::setPointerDpi(
    const QString& profileID, const QString& deviceModel, const cDpiSettings& dpi)
{
    cPointerProperties pointer = pointerProperties(profileID, deviceModel);
    pointer.dpi = dpi;
    perform({tr("Change Pointer Resolution"), QString()}, {SetPointer {profileID, deviceModel, pointer}});
}

void cProfileMgrService::setPointerMovement(
    const QString& profileID, const QString& deviceModel, int speed, bool enableAcceleration)
{
    cPointerProperties pointer = pointerProperties(profileID, deviceModel);
    pointer.speed = qBound(1, speed, 20);
    pointer.acceleration = enableAcceleration;
    perform({tr("Change Pointer Speed"), QString()}, {SetPointer {profileID, deviceModel, pointer}});
}

void cProfileMgrService::setPointerReportRate(
    const QString& profileID, const QString& deviceModel, int reportRate)
{
    cPointerProperties pointer = pointerProperties(profileID, deviceModel);
    pointer.reportRate = qMax(0, reportRate);
    perform({tr("Change Report Rate"), QString()}, {SetPointer {profileID, deviceModel, pointer}});
}

cPointerProperties cProfileMgrService::pointerProperties(const QString& profileID, const QString& deviceModel)
{
    const cPointerProperties* pointer = stored(profile(profileID), deviceModel);
    return pointer ? *pointer : cPointerProperties();
}

bool cProfileMgrService::pointerDpi(const QString& profileID, const QString& deviceModel, cDpiSettings& dpi)
{
    const cPointerProperties* pointer = stored(profile(profileID), deviceModel);
    if (!pointer || pointer->dpi.levels.isEmpty())
        return false;
    dpi = pointer->dpi;
    return true;
}

bool cProfileMgrService::pointerMovement(
    const QString& profileID, const QString& deviceModel, int& speed, bool& enableAcceleration)
{
    const cPointerProperties* pointer = stored(profile(profileID), deviceModel);
    if (!pointer || pointer->speed == 0)
        return false;
    speed = pointer->speed;
    enableAcceleration = pointer->acceleration;
    return true;
}

bool cProfileMgrService::pointerReportRate(
    const QString& profileID, const QString& deviceModel, int& reportRate)
{
    const cPointerProperties* pointer = stored(profile(profileID), deviceModel);
    if (!pointer || pointer->reportRate == 0)
        return false;
    reportRate = pointer->reportRate;
    return true;
}
