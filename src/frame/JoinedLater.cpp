#include "frame/JoinedLater.h"

void PrepareUserConfig() {}

void RunEnvelopePrint() {}
void RunPostcardPrint() {}
void RunLabelPrint() {}
