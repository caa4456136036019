#include "mainform/ValueWindowsFixture.h"

#include "globals/ProgramGlobals.h"

using namespace Qt::StringLiterals;

bool ValueWindowsTest::Given(const ValueWindowDefinition& definition) { return Globals().Flags.*definition.flag; }
