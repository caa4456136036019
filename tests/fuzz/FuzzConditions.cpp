// Conditions that callers leave for a list window: whatever they are, a value is a piece of them, and taking terms out
// comes to an end. (What a caller would never write may leave a longer rest: pieces of it then stand twice.)

#include "fuzz/FuzzInput.h"
#include "selection/ConditionStrings.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const QString column = input.Text(), condition = input.Text();
    QString rest = condition;
    for (int terms = 0; terms < 4; ++terms) {
        const QString before = rest;
        const QString value = ExtractCondition(column, before, rest);
        Require(rest.size() <= 2 * before.size(), "no piece of a condition stands more than twice");
        Require(value.size() <= before.size(), "a value is a piece of its condition");
        if (rest == before) break;
    }
    Require(!RemovePercent(condition).contains(u'%'), "no percent sign is left");
    return 0;
}
