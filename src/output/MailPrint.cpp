#include "output/MailPrint.h"

#include "globals/ProgramGlobals.h"
#include "output/MailPieces.h"
#include "output/OutputFlow.h"
#include "output/ReportRunner.h"

using namespace Qt::StringLiterals;

namespace {

void PrintPieces(bool (*build)(), const QString& word) {
    RunOutput(
        build, [word] { PrintReportOnHost(Globals().ReportName + word); }, u"印刷情報が有りません"_s);
}

}  // namespace

void RunEnvelopePrint() { PrintPieces(BuildEnvelopeData, u"封筒"_s); }

void RunPostcardPrint() { PrintPieces(BuildPostcardData, u"はがき"_s); }

void RunLabelPrint() { PrintPieces(BuildLabelData, u"宛名ラベル"_s); }
