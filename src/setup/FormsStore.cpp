#include "setup/FormsStore.h"

#include "platform/LinkedTables.h"
#include "report-host/StandardForms.h"
#include "setup/StoreWriter.h"

using namespace Qt::StringLiterals;

namespace setup {

void WriteStandardForms(const QString& path, const QString& reportDatabase) {
    StoreWriter store(path, Store::Forms);
    {
        TableWriter forms(store, u"帳票"_s), links(store, u"リンクテーブル"_s);
        for (const QString& name : report::StandardFormNames()) {
            forms.Set(u"名称"_s, name).Set(u"定義"_s, report::StandardForm(name)).Add();
            links.Set(u"名称"_s, name)
                .Set(u"元テーブル"_s, name)
                .Set(u"接続"_s, platform::ConnectTextOf(reportDatabase))
                .Set(u"属性"_s, QString::number(platform::kLinkedTable))
                .Add();
        }
    }
    store.Commit();
}

}  // namespace setup
