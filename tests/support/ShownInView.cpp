#include "ShownInView.h"

#include <cMacroBindingView.h>

#include <QString>
#include <QStringList>

namespace {

// An explicit instantiation may name private members, which is how a test gets at the four.
template<typename Tag, typename Tag::Member member>
struct Opened
{
    friend typename Tag::Member open(Tag) { return member; }
};
struct ProfileId
{
    using Member = QString cMacroBindingView::*;
    friend Member open(ProfileId);
};
struct DeviceCategory
{
    using Member = QString cMacroBindingView::*;
    friend Member open(DeviceCategory);
};
struct CurrentMState
{
    using Member = MKey::MKey_t cMacroBindingView::*;
    friend Member open(CurrentMState);
};
struct ControlIds
{
    using Member = QStringList cMacroBindingView::*;
    friend Member open(ControlIds);
};
template struct Opened<ProfileId, &cMacroBindingView::m_profileId>;
template struct Opened<DeviceCategory, &cMacroBindingView::m_deviceCategory>;
template struct Opened<CurrentMState, &cMacroBindingView::m_currentMState>;
template struct Opened<ControlIds, &cMacroBindingView::m_controlIds>;

} // namespace

void setShownInView(
    cMacroBindingView& view, const QString& profileID, const QString& category, MKey::MKey_t mode)
{
    view.*open(ProfileId()) = profileID;
    view.*open(DeviceCategory()) = category;
    view.*open(CurrentMState()) = mode;
}

void setControlsOfView(cMacroBindingView& view, const QStringList& controlIds)
{
    view.*open(ControlIds()) = controlIds;
}
