#include "database/DatabaseSession.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace database;

namespace {

struct Case {
    QString text;
    QStringList fields;  // provider, user, password, data source, catalog
};

void PrintTo(const Case& c, std::ostream* out) { *out << c.text.toStdString(); }

class ConnectionStrings : public testing::TestWithParam<Case> {};

}  // namespace

TEST_P(ConnectionStrings, AreTakenApart) {
    const ConnectionRequest request = ParseConnectionString(GetParam().text);
    EXPECT_EQ(
        QStringList({request.provider, request.userId, request.password, request.dataSource, request.initialCatalog}),
        GetParam().fields);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, ConnectionStrings,
    testing::Values(Case{u"Provider=P.12.0;User ID=;Password=;Data Source=/a b/共通.accdb"_s,
                         {u"P.12.0"_s, u""_s, u""_s, u"/a b/共通.accdb"_s, u""_s}},
                    Case{u"Provider=P;User ID=u;Password=p;Data Source=srv;Initial Catalog=db;"_s,
                         {u"P"_s, u"u"_s, u"p"_s, u"srv"_s, u"db"_s}},
                    Case{u" provider = P ; DATA SOURCE = a ;user id= x "_s, {u"P"_s, u"x"_s, u""_s, u"a"_s, u""_s}},
                    Case{u"Password=\"a;b\"\"c\";Provider='p''q';Data Source=x"_s,
                         {u"p'q"_s, u""_s, u"a;b\"c"_s, u"x"_s, u""_s}},
                    Case{u"Password=a=b'c;Provider=p"_s, {u"p"_s, u""_s, u"a=b'c"_s, u""_s, u""_s}},
                    Case{u"Jet OLEDB:Engine Type=5;Provider=p;Nonsense;;=x"_s, {u"p"_s, u""_s, u""_s, u""_s, u""_s}},
                    Case{u"Provider=a;Provider=b"_s, {u"b"_s, u""_s, u""_s, u""_s, u""_s}},
                    Case{u"Password=\"open"_s, {u""_s, u""_s, u"open"_s, u""_s, u""_s}},
                    Case{u"Password="_s, {u""_s, u""_s, u""_s, u""_s, u""_s}},
                    Case{u""_s, {u""_s, u""_s, u""_s, u""_s, u""_s}}));
