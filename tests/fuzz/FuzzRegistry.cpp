// Registry files: a file that is read is written back with the same content.

#include "fuzz/FuzzInput.h"
#include "platform/registry/RegistryFile.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto content = platform::ParseRegistry(FuzzInput(data, size).Bytes());
    if (!content) return 0;
    const QByteArray written = platform::RegistryText(*content);
    const auto again = platform::ParseRegistry(written);
    Require(again.has_value(), "what was written can be read");
    Require(platform::RegistryText(*again) == written, "writing it again changes nothing");
    return 0;
}
