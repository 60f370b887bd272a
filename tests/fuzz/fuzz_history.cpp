// A map under any order of old and new commands, and what undoing and doing again make of it.

#include "MapWalk.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MapWalk(FuzzInput(BytesOf(data, size))).Run();
    return 0;
}
