#pragma once
// Text that is handed over piece by piece, from start to end, as soon as each is there.

#include <functional>
#include <string_view>

namespace pelk {

using TakePiece = std::function<void(std::string_view piece)>;

/// Makes a text and hands it over.
using MakePieces = std::function<void(const TakePiece& take)>;

}  // namespace pelk
