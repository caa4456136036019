#include "support/FormLayout.h"
#include "support/MainFormFixture.h"

using namespace Qt::StringLiterals;

class MainFormLayout : public MainFormTest {};

TEST_F(MainFormLayout, AfterTheStart) {
    Start();
    ExpectLayout(MainForm(), u"mainform"_s);
}
