#pragma once
// Movements of a picture that is slow to paint.

namespace pelk {

/// A painting that takes longer than a frame of the screen is too slow for a movement, in
/// milliseconds.
inline constexpr int kFrameMilliseconds = 16;
/// A movement rests when there was no frame for so many milliseconds.
inline constexpr int kRestMilliseconds = 100;

}  // namespace pelk
