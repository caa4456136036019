// Patterns of LIKE: none hangs or reads outside, and those without a wildcard find exactly their own text.

#include "fuzz/FuzzInput.h"
#include "platform/database/LikePattern.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const QByteArray pattern = input.Bytes(), text = input.Bytes();
    const auto compiled = platform::LikePattern::Compile(pattern);
    if (!compiled) {
        Require(pattern.contains('['), "only an open list is refused");
        return 0;
    }
    const bool found = compiled->Matches(text);
    const auto anywhere = platform::LikePattern::Compile('%' + pattern + '%');
    Require(anywhere.has_value(), "a pattern stays one between percent signs");
    Require(!found || anywhere->Matches(text), "what matches the whole is found anywhere");
    if (!pattern.contains('%') && !pattern.contains('_') && !pattern.contains('['))
        Require(compiled->Matches(pattern), "a plain text matches itself");
    return 0;
}
