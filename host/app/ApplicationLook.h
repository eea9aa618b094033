#pragma once

/// What all widgets look like before the style sheet has its say.
namespace ApplicationLook {

/// Gives the application its style, font and palette. Frames on the canvas fill themselves with the palette's
/// black.
void apply();

} // namespace ApplicationLook
