#include "frame/StartCommand.h"

#include <algorithm>
#include <array>

#include "globals/ProgramGlobals.h"
#include "text/mod項目編集.h"

namespace {

/// A field of the fixed-width block. Positions are in characters, 1-based.
struct CommandField {
    int start;
    int width;
    QString InquiryConditions::*target;
};

constexpr CommandField kOffice = {1, 3, nullptr};
constexpr CommandField kDisplayOrder = {180, 1, nullptr};

constexpr std::array kRangeFields = {
    CommandField{4, 3, &InquiryConditions::DepartmentFrom}, CommandField{7, 3, &InquiryConditions::DepartmentTo},
    CommandField{10, 3, &InquiryConditions::SectionFrom},   CommandField{13, 3, &InquiryConditions::SectionTo},
    CommandField{16, 2, &InquiryConditions::PositionFrom},  CommandField{18, 2, &InquiryConditions::PositionTo},
    CommandField{20, 5, &InquiryConditions::StaffFrom},     CommandField{25, 5, &InquiryConditions::StaffTo},
};

constexpr std::array kSearchTextFields = {
    CommandField{30, 30, &InquiryConditions::SearchName},     CommandField{60, 30, &InquiryConditions::SearchKana},
    CommandField{90, 30, &InquiryConditions::SearchPhone},    CommandField{120, 30, &InquiryConditions::SearchZip},
    CommandField{150, 30, &InquiryConditions::SearchAddress},
};

constexpr std::array kRangeStarts = {&InquiryConditions::DepartmentFrom, &InquiryConditions::SectionFrom,
                                     &InquiryConditions::PositionFrom, &InquiryConditions::StaffFrom};

QString Cut(const QString& command, const CommandField& field) { return command.mid(field.start - 1, field.width); }

/// All fields are set, whatever the length: a short command empties the fields after its end, ranges included.
void CutFields(const QString& command) {
    InquiryConditions& conditions = Globals().Conditions;
    Globals().ScopeOfficeCode = Cut(command, kOffice);
    for (const CommandField& field : kRangeFields) conditions.*field.target = Cut(command, field);
    for (const CommandField& field : kSearchTextFields) conditions.*field.target = Cut(command, field);
    conditions.DisplayOrder = NumericValue(Cut(command, kDisplayOrder));
}

bool IsComplete(const InquiryConditions& conditions) {
    return std::ranges::none_of(kRangeFields,
                                [&](const CommandField& field) { return (conditions.*field.target).isEmpty(); });
}

}  // namespace

void ParseStartCommand(const QString& command) {
    CutFields(command);
    InquiryConditions& conditions = Globals().Conditions;
    if (!IsComplete(conditions)) return;
    // Only the starts: an end consisting of blanks is kept and bounds the list.
    for (const auto start : kRangeStarts)
        if (TrimBlanks(conditions.*start).isEmpty()) (conditions.*start).clear();
    Globals().StartCommandAbsent = false;
}
