// The function that libFuzzer calls; TARGET is the one of the program.
#include "../Input.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    blattwart::fuzz::TARGET(data, size);
    return 0;
}
