#include "setup/schema/SchemaUpgrade.h"

#include <gtest/gtest.h>

#include "setup/schema/TableCopy.h"
#include "support/PrintText.h"

using namespace Qt::StringLiterals;

namespace {

/// Sites may add columns of any name.
const TableDefinition kTable{.store = DatabaseKind::General,
                             .name = u"M\"部門"_s,
                             .columns = {{u"コード"_s, u"TEXT"_s}, {u"特\"記"_s, u"TEXT"_s}},
                             .key = {u"コード"_s},
                             .indexes = {{u"特\"記"_s}}};

}  // namespace

TEST(TableStatements, QuotesInNamesAreDoubled) {
    EXPECT_EQ(setup::CreateTableStatement(kTable),
              u"CREATE TABLE \"M\"\"部門\" (\"コード\" TEXT, \"特\"\"記\" TEXT, PRIMARY KEY (\"コード\"))"_s);
    EXPECT_EQ(setup::AddColumnStatement(kTable, kTable.columns.last()),
              u"ALTER TABLE \"M\"\"部門\" ADD COLUMN \"特\"\"記\" TEXT"_s);
    EXPECT_EQ(setup::CreateIndexStatement(kTable, 0),
              u"CREATE INDEX \"M\"\"部門_索引1\" ON \"M\"\"部門\" (\"特\"\"記\")"_s);
    EXPECT_EQ(setup::InsertHead(kTable), u"INSERT INTO \"M\"\"部門\" (\"コード\", \"特\"\"記\") VALUES "_s);
}
