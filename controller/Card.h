#pragma once

#include <cstdint>
#include <vector>

class QSize;
class QString;

// Cards: the still pictures that the virtual camera shows while no phone video flows.
namespace pevrix {

// Each draws one card and returns its packed 3-byte pixels in the order blue, green, red, top row
// first: exactly width * height * 3 bytes, to be shared and never written to while a camera shows
// them. Empty for a size that isPictureSize() refuses, and when there is no memory for it.
//
// For the GUI thread, once there is a QGuiApplication. A font that this computer lacks is replaced
// by a similar one; the size of text follows neither the desktop's resolution nor its scaling.

// Invites to connect a phone. The third line shows the pairing address; it is left out when the
// address is empty or says that there is none.
[[nodiscard]] std::vector<std::uint8_t> drawIdleCard(QSize size, const QString& address);

// Says that the phone has stopped sending video.
[[nodiscard]] std::vector<std::uint8_t> drawPausedCard(QSize size);

} // namespace pevrix
