#include "frame/JoinedLater.h"

void OpenSelectionWindow(const QString&) {}

void RunEnvelopePrint() {}
void RunPostcardPrint() {}
void RunLabelPrint() {}
