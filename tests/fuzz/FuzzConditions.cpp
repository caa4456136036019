// Conditions that callers pass to a list window: each parsed value is a substring of the condition, and removing terms
// terminates. (For malformed conditions the rest may be longer than the input, with parts duplicated.) The window adds
// the rest to its statement, which is translated for every engine.

#include "data/Catalogue.h"
#include "fuzz/AdapterRules.h"
#include "fuzz/FuzzInput.h"
#include "selection/ConditionStrings.h"

using namespace Qt::StringLiterals;

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
    CheckForEveryEngine(u"SELECT TOP 1000 M担当者.コード,M担当者.氏名 FROM M担当者 WHERE ("_s + rest +
                            u") AND M担当者.ログインID = '' ORDER BY M担当者.氏名"_s,
                        SuiteTextRules());
    Require(!RemovePercent(condition).contains(u'%'), "no percent sign is left");
    return 0;
}
