#pragma once

class cProfileMgrService;
class QWidget;

/// What becomes of profiles that can't be saved when the application is to end.
namespace UnsavedProfiles {

/// Saves all profiles. Where that fails the user is asked: to try again, to save them in another folder, to
/// end all the same, or to go on working. Returns true if the application may end.
bool settle(cProfileMgrService& profiles, QWidget* window);

} // namespace UnsavedProfiles
