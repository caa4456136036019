#include "frame/JoinedLater.h"

void ReceiveStartLink(const QString&, const QString&) {}
void WriteEndLink(const QString&) {}
void LaunchStaffRegistration(int) {}

void PrepareUserConfig() {}

void OpenLookupWindow(const QString&) {}
void OpenSelectionWindow(const QString&) {}

void RunReportPrint() {}
void RunReportPreview() {}
void RunEnvelopePrint() {}
void RunPostcardPrint() {}
void RunLabelPrint() {}
