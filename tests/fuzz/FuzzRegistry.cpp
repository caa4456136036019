// Registry files: a file that is read is written back with the same content.

#include <algorithm>

#include "fuzz/FuzzInput.h"
#include "platform/registry/RegistryFile.h"

using platform::RegistryContent;

namespace {

bool SameValues(const RegistryContent::Key& one, const RegistryContent::Key& other) {
    return std::ranges::equal(one.values, other.values, [](const auto& a, const auto& b) {
        return a.first == b.first && a.second.name == b.second.name && a.second.data == b.second.data;
    });
}

bool Same(const RegistryContent& one, const RegistryContent& other) {
    return std::ranges::equal(one.keys, other.keys, [](const auto& a, const auto& b) {
        return a.first == b.first && a.second.path == b.second.path && SameValues(a.second, b.second);
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto content = platform::ParseRegistry(FuzzInput(data, size).Bytes());
    if (!content) return 0;
    const QByteArray written = platform::RegistryText(*content);
    const auto again = platform::ParseRegistry(written);
    Require(again.has_value(), "what was written can be read");
    Require(Same(*again, *content), "nothing is lost on the way");
    return 0;
}
