// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The distances of the windows, in device-independent pixels. The program's style gives every layout its
// margins and its spacing from here; a form file names a distance only where it takes another one of these.

namespace platform {

/// Between things that belong together: a field and its picture, the rows of a block of fields, the items of
/// the side bar.
inline constexpr int kTight = 4;
/// Between controls that stand beside or below each other, and around the contents of a window.
inline constexpr int kGap = 8;
/// Around the contents of a page or of a framed block.
inline constexpr int kInset = 12;
/// Between two columns of fields.
inline constexpr int kColumnGap = 24;

/// What the columns of a grid have beside the longest text that must be whole, and its lines above and below.
inline constexpr int kCellInset = 14;
inline constexpr int kRowInset = 8;
/// How much further in than its parent a node of a tree stands.
inline constexpr int kTreeStep = 14;

/// Sides of the pictures: beside the items of the side bar, and the one of the program.
inline constexpr int kBarPicture = 22;
inline constexpr int kLogoPicture = 32;

} // namespace platform
