#include "system/Memory.h"

#include <malloc.h>

namespace pevrix {

// The heap keeps pages that lie between others in use; pictures leave hundreds of megabytes of
// them.
void returnFreeMemory()
{
    malloc_trim(0);
}

} // namespace pevrix
