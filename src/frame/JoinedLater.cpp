#include "frame/JoinedLater.h"

void PrepareUserConfig() {}

void OpenSelectionWindow(const QString&) {}

void RunReportPrint() {}
void RunReportPreview() {}
void RunTextOutput() {}
void RunEnvelopePrint() {}
void RunPostcardPrint() {}
void RunLabelPrint() {}
