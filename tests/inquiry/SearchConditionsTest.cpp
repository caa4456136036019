#include "inquiry/SearchConditions.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace Qt::StringLiterals;

TEST(SearchConditions, AreFoundByTheirId) {
    for (const RangeCondition& range : RangeConditions()) EXPECT_EQ(&ConditionOf(range.id), &range);
    for (const TextCondition& text : TextConditions()) EXPECT_EQ(&ConditionOf(text.id), &text);
    for (const KindCondition& kind : KindConditions()) EXPECT_EQ(&ConditionOf(kind.id), &kind);
}

TEST(SearchConditions, ShareNoControlAndNoWindow) {
    QStringList names;
    const auto add = [&names](const ConditionSelection& selection) { names << selection.button << selection.window; };
    for (const RangeCondition& range : RangeConditions()) {
        add(range.selection);
        names << range.fromItem << range.toItem << range.lookup;
    }
    for (const TextCondition& text : TextConditions()) {
        add(text.selection);
        names << text.item;
    }
    for (const KindCondition& kind : KindConditions()) names << kind.item << kind.listItem;
    EXPECT_FALSE(names.contains(u""_s));
    EXPECT_EQ(names.removeDuplicates(), 0);
}

TEST(SearchConditions, ShareNoFieldAndNoFlag) {
    InquiryConditions conditions;
    ConditionFlags flags;
    for (const RangeCondition& range : RangeConditions()) {
        EXPECT_EQ(conditions.*range.from + conditions.*range.to, QString());
        conditions.*range.from = conditions.*range.to = range.fromItem;
        EXPECT_FALSE(std::exchange(flags.*range.selection.flag, true)) << range.fromItem.toStdString();
    }
    for (const TextCondition& text : TextConditions()) {
        EXPECT_EQ(std::exchange(conditions.*text.field, text.item), QString()) << text.item.toStdString();
        EXPECT_FALSE(std::exchange(flags.*text.selection.flag, true)) << text.item.toStdString();
    }
    for (const KindCondition& kind : KindConditions())
        EXPECT_EQ(std::exchange(conditions.*kind.field, 1), 0) << kind.item.toStdString();
}
