#pragma once

#include <QString>

namespace pevrix {

// What a peer, or a person who pastes, says as one line that can be shown, stored and logged: line
// breaks and other control characters become blanks, marks that turn the direction of writing or
// take no room are left out, and what is longer than `maxLength` is cut, with an ellipsis.
[[nodiscard]] QString plainText(const QString& text, qsizetype maxLength);

// Of names and models; far more than phones have.
inline constexpr qsizetype kMaxNameLength = 64;

} // namespace pevrix
