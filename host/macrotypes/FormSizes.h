#pragma once

/// Sizes of the command pages, in pixels at the usual size of text.
namespace FormSizes {
inline constexpr int Margin = 15;
inline constexpr int Spacing = 6;
/// Between groups of fields.
inline constexpr int Gap = 12;
/// What a row of a list is higher than its text.
inline constexpr int RowPadding = 7;
} // namespace FormSizes
