#pragma once

#include "ProfileStep.h"

#include <vector>

/// From one state of a profile to another.
namespace ProfileDiff {

/// The changes that make `from`, which is in the book, what `to` is. Both have the same id, but for case.
/// Listeners hear of what differs and of nothing else.
std::vector<ProfileChange> changes(const Profile& from, const Profile& to);

} // namespace ProfileDiff
