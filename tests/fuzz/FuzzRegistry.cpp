// Registry files: parsed content respects the limits and survives a round trip; every accepted key path can be read
// back.

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

bool WithinBounds(const RegistryContent& content) {
    return std::ranges::all_of(content.keys, [](const auto& entry) {
        const auto& key = entry.second;
        return platform::IsUsableKeyPath(key.path) && key.path.count(u'\\') < platform::kMaxKeyDepth &&
               key.path.size() <= platform::kMaxKeyDepth * (platform::kMaxNameLength + 1) &&
               std::ranges::all_of(
                   key.values, [](const auto& value) { return value.second.name.size() <= platform::kMaxNameLength; });
    });
}

void CheckKeyPath(const QString& path) {
    if (!platform::IsUsableKeyPath(path)) return;
    RegistryContent content;
    content.Make(path);
    const auto again = platform::ParseRegistry(platform::RegistryText(content));
    Require(again && Same(*again, content), "a usable path of a key is kept");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    CheckKeyPath(FuzzInput(data, size).Units());
    CheckKeyPath(QString::fromUtf8(bytes));
    const auto content = platform::ParseRegistry(bytes);
    if (!content) return 0;
    Require(WithinBounds(*content), "what is read keeps the bounds");
    const QByteArray written = platform::RegistryText(*content);
    const auto again = platform::ParseRegistry(written);
    Require(again.has_value(), "what was written can be read");
    Require(Same(*again, *content), "nothing is lost on the way");
    return 0;
}
