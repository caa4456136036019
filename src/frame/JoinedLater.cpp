#include "frame/JoinedLater.h"

void PrepareUserConfig() {}

void OpenSelectionWindow(const QString&) {}

void RunEnvelopePrint() {}
void RunPostcardPrint() {}
void RunLabelPrint() {}
