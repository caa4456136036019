#include "frame/JoinedLater.h"

bool LoadCompanyInfo() { return true; }
QString CompanyName() { return {}; }
QString OfficeTextOutputFolder() { return QString(); }
void ShowProgramTitle() {}
void PublishConditionLabels(const QString&, const QString&) {}

void ReceiveStartLink(const QString&, const QString&) {}
void WriteEndLink(const QString&) {}
void LaunchStaffRegistration(int) {}

void PrepareUserConfig() {}

void OpenLookupWindow(const QString&) {}
void OpenSelectionWindow(const QString&) {}

void RunReportPrint() {}
void RunReportPreview() {}
void RunTextOutput() {}
void RunEnvelopePrint() {}
void RunPostcardPrint() {}
void RunLabelPrint() {}
