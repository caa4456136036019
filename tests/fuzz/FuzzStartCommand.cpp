// Command lines: each field is the substring at its position, and only a complete field counts as given.

#include "frame/Mod要員名簿照会.h"
#include "fuzz/FuzzInput.h"
#include "globals/ProgramGlobals.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString command = FuzzInput(data, size).Units();
    ProgramGlobals& globals = Globals();
    globals.StartCommandAbsent = true;
    ParseStartCommand(command);
    const InquiryConditions& conditions = globals.Conditions;
    Require(globals.ScopeOfficeCode == command.left(3), "the office stands in front");
    Require(conditions.SearchAddress == command.mid(149, 30), "the address stands at its place");
    Require(conditions.DisplayOrder >= 0 && conditions.DisplayOrder <= 9, "the order is one digit");
    Require(globals.StartCommandAbsent == (command.size() < 25), "a command with all ranges counts");
    return 0;
}
