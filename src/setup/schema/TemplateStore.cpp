#include "setup/schema/TemplateStore.h"

#include "database/LinkedTables.h"
#include "report-host/template/TemplateFile.h"
#include "setup/schema/DatabaseFileWriter.h"

using namespace Qt::StringLiterals;

namespace setup {

void WriteStandardForms(const QString& path, const QString& reportDatabase) {
    DatabaseFileWriter store(path, DatabaseKind::Forms);
    {
        TableWriter forms(store, u"帳票"_s), links(store, u"リンクテーブル"_s);
        for (const QString& name : report::StandardTemplateNames()) {
            forms.Set(u"名称"_s, name).Set(u"定義"_s, report::StandardTemplate(name)).Add();
            links.Set(u"名称"_s, name)
                .Set(u"元テーブル"_s, name)
                .Set(u"接続"_s, database::ConnectTextOf(reportDatabase))
                .Set(u"属性"_s, QString::number(database::kLinkedTable))
                .Add();
        }
    }
    store.Commit();
}

}  // namespace setup
