#include "pairing/DefaultRoute.h"

#include <winsock2.h>
// After the sockets, for it includes what they replace.
#include <iphlpapi.h>

namespace pevrix {

int defaultRouteInterfaceIndex()
{
    constexpr IPAddr kPublicAddress = 0x08080808; // 8.8.8.8, the same in either byte order
    DWORD index = 0;
    if (GetBestInterface(kPublicAddress, &index) != NO_ERROR) {
        return 0;
    }
    return static_cast<int>(index);
}

} // namespace pevrix
