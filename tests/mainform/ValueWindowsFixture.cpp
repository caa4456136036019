#include "mainform/ValueWindowsFixture.h"

#include "globals/ProgramGlobals.h"

using namespace Qt::StringLiterals;

bool ValueWindowsTest::Given(const TextCondition& definition) { return Globals().Flags.*definition.selection.flag; }
