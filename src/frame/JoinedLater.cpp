#include "frame/JoinedLater.h"

void PrepareUserConfig() {}

void OpenLookupWindow(const QString&) {}
void OpenSelectionWindow(const QString&) {}

void RunEnvelopePrint() {}
void RunPostcardPrint() {}
void RunLabelPrint() {}
