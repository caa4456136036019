// Part of Checks.h: the list of the common checks.
#include "platform/RuntimeError.h"
#include "setup/checks/Checks.h"

using namespace Qt::StringLiterals;

namespace setup {

const QList<CommonCheck>& CommonChecks() {
    static const QList<CommonCheck> checks{
        {.subject = u"フォルダ"_s, .run = CheckPlace},
        {.subject = u"データベースの種類"_s, .run = CheckGenerations},
        {.subject = u"プログラム"_s, .run = CheckPrograms, .perUser = true},
        {.subject = u"帳票ホスト"_s, .run = CheckHost, .perUser = true},
        {.subject = u"権限"_s, .run = CheckModes},
        {.subject = u"ディスクの空き"_s, .run = CheckSpace},
        {.subject = u"残ったフォルダ"_s, .run = CheckLeftovers},
        {.subject = u"構成データベース"_s, .run = CheckConfiguration, .perUser = true},
        {.subject = u"一般データベースの定義"_s, .run = CheckDefinition},
        {.subject = u"一般データベース"_s, .run = CheckGeneral, .perUser = true},
        {.subject = u"会社と事業所"_s, .run = CheckCompany},
        {.subject = u"区分"_s, .run = CheckClasses},
        {.subject = u"要員"_s, .run = CheckStaff},
        {.subject = u"暗証番号"_s, .run = CheckPins},
        {.subject = u"動作環境とメニュー"_s, .run = CheckEnvironment},
        {.subject = u"稼動履歴"_s, .run = CheckCommonClock},
        {.subject = u"帳票"_s, .run = CheckCommonReports, .perUser = true},
    };
    return checks;
}

void RunCheck(CheckReport& report, const QString& subject, const std::function<void()>& check) {
    try {
        check();
    } catch (const platform::RuntimeError& error) {
        report.Add({.what = u"%1を調べられませんでした。%2"_s.arg(subject, platform::TextForPeople(error)),
                    .remedy = u"もう一度調べてください。"_s});
    }
}

}  // namespace setup
