// Report forms as an administrator may write them: every text is read to its end, and each mistake has its line.

#include "fuzz/FuzzInput.h"
#include "report-host/FormParser.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = FuzzInput(data, size).Text();
    const qsizetype lines = text.count(u'\n') + 1;
    for (const report::FormMistake& mistake : report::ParseForm(text).mistakes) {
        Require(mistake.line >= 0 && mistake.line <= lines, "a mistake lies in the text");
        Require(!mistake.reason.isEmpty(), "a mistake has a reason");
    }
    return 0;
}
