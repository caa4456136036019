// Part of Sample.h: the rows of M担当者.
#include <QDate>

#include "setup/sample/Sample.h"
#include "setup/sample/SampleData.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

QString Text(const char16_t* text) { return QString::fromUtf16(text); }

QString Digits(int value, int width) { return QString::number(value).rightJustified(width, u'0'); }

QString WideNumber(int value) {
    QString wide = QString::number(value);
    for (QChar& digit : wide) digit = QChar(digit.unicode() - u'0' + u'０');
    return wide;
}

QString Date(int year, int month, int day) { return Digits(year, 4) + Digits(month, 2) + Digits(day, 2); }

// Each random draw needs a separate statement: the evaluation order within one expression is unspecified.

QString RandomDate(int year, int firstMonth, int lastMonth, SampleRandom& random) {
    const int month = random.Between(firstMonth, lastMonth);
    return Date(year, month, random.Between(1, 28));
}

QString RandomDigits(int count, SampleRandom& random) {
    QString digits;
    while (digits.size() < count) digits += QChar(u'0' + random.Below(10));
    return digits;
}

/// Values that several columns of one person depend on.
struct Person {
    int place;
    bool founder;  // born before 昭和 and left long ago
    bool woman;
    bool left;
    int birthYear;
    int hireYear;
    QString hired;  // yyyymmdd
    SampleName family;
    SampleName given;
    bool LaunchesPrograms() const { return place == 0; }
};

Person MakePerson(int place, SampleRandom& random) {
    Person person{};
    person.place = place;
    person.founder = place % 150 == 7;
    person.woman = random.Percent(42);
    person.birthYear = person.founder ? random.Between(1905, 1924) : random.Between(1957, 2005);
    if (!person.founder && random.Percent(4)) person.birthYear -= 18;
    person.hireYear = qMin(person.birthYear + random.Between(18, 24), kReferenceYear);
    const bool leaves = random.Percent(7);
    person.left =
        person.hireYear < kReferenceYear - 1 && (person.founder || leaves || kReferenceYear - person.birthYear >= 65);
    if (person.LaunchesPrograms()) {
        person.left = false;
        person.birthYear = 1978;
        person.hireYear = 2000;
    }
    const bool spring = person.LaunchesPrograms() || person.hireYear == kReferenceYear || random.Percent(80);
    person.hired = spring ? Date(person.hireYear, 4, 1) : RandomDate(person.hireYear, 4, 12, random);
    person.family = random.Pick(FamilyNames());
    person.given = random.Pick(person.woman ? FemaleNames() : MaleNames());
    return person;
}

void SetIdentity(TableWriter& row, const Person& person, SampleRandom& random) {
    const QString code = StaffCode(person.place), latin = person.family.latin;
    row.Set(u"コード"_s, code)
        .Set(u"氏名"_s, person.family.written + u'　' + person.given.written)
        .Set(u"カナ"_s, person.family.kana + u' ' + person.given.kana)
        .Set(u"性別区分"_s, person.woman ? u"1"_s : u"0"_s);
    QString pin;
    constexpr QStringView kPinLetters = u"ABCDEFGHJKLMNPQRSTUVWXYZ23456789";
    for (int i = random.Between(4, 6); i > 0; --i) pin += kPinLetters[random.Below(int(kPinLetters.size()))];
    row.Set(u"暗証番号"_s, pin);
    if (person.LaunchesPrograms() || random.Percent(60))
        // Mixed case, since login ignores letter case.
        row.Set(u"ログインID"_s, (random.Percent(20) ? latin.left(1).toUpper() + latin.mid(1) : latin) + code);
    const bool mail = person.birthYear >= 1950 && random.Percent(75);
    row.Set(u"EMAIL"_s,
            mail ? person.given.latin + u'.' + latin + QString::number(person.place + 1) + u"@example.co.jp"_s : u""_s);
}

QString Telephone(const SamplePlace& place, SampleRandom& random) {
    const QString area = Text(place.areaCode);
    const int exchangeDigits = 6 - static_cast<int>(area.size());  // ten digits in all, including the last four
    QString number = area + u'-' + QString::number(random.Between(2, 9));
    number += RandomDigits(exchangeDigits - 1, random);
    return number + u'-' + RandomDigits(4, random);
}

void SetAddress(TableWriter& row, SampleRandom& random) {
    const SamplePlace& place = random.Pick(SamplePlaces());
    QString street = Text(place.town) + WideNumber(random.Between(1, 8));
    street += u'－' + WideNumber(random.Between(1, 25));
    if (random.Percent(70)) street += u'－' + WideNumber(random.Between(1, 20));
    QString building;
    if (random.Percent(40)) {
        building = Text(random.Pick(SampleBuildings()));
        const int floor = random.Between(1, 9);
        building += WideNumber(floor * 100 + random.Between(1, 9)) + u"号室"_s;
    }
    // If 住所A is set, 住所B must not be Null: the programs read it without a check.
    row.Set(u"郵便番号"_s, Text(place.postalCode))
        .Set(u"住所A"_s, Text(place.city))
        .Set(u"住所B"_s, street)
        .Set(u"住所C"_s, building)
        .Set(u"電話"_s, Telephone(place, random));
    QString mobile = u"0"_s + QString::number(random.Between(7, 9)) + u"0-"_s;
    mobile += QString::number(random.Between(1, 9)) + RandomDigits(3, random);
    mobile += u'-' + RandomDigits(4, random);
    if (random.Percent(30)) mobile = u""_s;
    row.Set(u"携帯電話"_s, mobile);
}

/// Sets a code of the organisation; some are left Null, empty, or refer to a missing row.
void SetUnit(TableWriter& row, const QString& column, const QString& code, const QString& gone, int luck) {
    if (luck < 2) return;
    row.Set(column, luck < 4 ? u""_s : luck < 5 ? gone : code);
}

QString Position(SampleRandom& random, int age) {
    if (age < 28) return u"90"_s;
    const int draw = random.Below(100);
    if (age >= 55 && draw < 3) return u"10"_s;
    if (age >= 45 && draw < 12) return draw % 2 ? u"20"_s : u"25"_s;
    if (age >= 38 && draw < 25) return u"30"_s;
    return draw < 40 ? u"40"_s : draw < 60 ? u"50"_s : u"90"_s;
}

void SetOrganisation(TableWriter& row, const Person& person, SampleRandom& random) {
    const bool sure = person.LaunchesPrograms();
    const SampleSection section = sure ? SampleSections().front() : random.Pick(SampleSections());
    const auto luck = [&] { return sure ? 99 : random.Below(100); };
    // About half of the staff work at the head office; a few belong to the whole company.
    const QString office = sure || random.Percent(3) ? u"000"_s
                           : random.Percent(50)      ? u"001"_s
                                                     : Text(random.Pick(SampleOfficeCodes()));
    // Never empty: the list is sorted by office, and its first page should show typical data.
    SetUnit(row, u"事業所コード"_s, office, u"099"_s, luck() + 4);
    const int unitLuck = luck();
    SetUnit(row, u"部門コード"_s, Text(section.department), u"990"_s, unitLuck);
    SetUnit(row, u"セクションコード"_s, Text(section.code), u"995"_s, qMin(unitLuck, luck()));
    SetUnit(row, u"役職コード"_s, sure ? u"20"_s : Position(random, kReferenceYear - person.birthYear), u"98"_s,
            luck());
    row.Set(u"社員区分"_s, sure || random.Percent(70) ? u"0"_s : QString::number(random.Between(1, 5)));
}

void SetDates(TableWriter& row, const Person& person, SampleRandom& random) {
    const QString birth = RandomDate(person.birthYear, 1, 12, random);
    QString leaving;
    bool gone = person.left;
    if (person.left) {
        const int last = qMin(person.birthYear + 65, kReferenceYear - 1);
        const int year = random.Between(person.hireYear + 1, qMax(person.hireYear + 1, last));
        leaving = RandomDate(year, 1, 12, random);
    } else if (!person.LaunchesPrograms() && (person.place % 60 == 11 || random.Percent(1))) {
        // Leaves after the reference date, or has no last day yet: still works here and may sign in.
        gone = true;
        leaving = person.place % 120 == 11 ? u"20991231"_s : Date(kReferenceYear + 1, 3, 31);
    }
    row.Set(u"生年月日"_s, person.LaunchesPrograms() || !random.Percent(2) ? birth : u""_s)
        .Set(u"入社日付"_s, person.hired)
        .Set(u"退社日付"_s, leaving)
        .Set(u"在籍区分"_s, gone ? u"1"_s : u"0"_s);
}

QString AtOffice(const QDate& day, SampleRandom& random) {
    QString stamp = day.toString(u"yyyyMMdd"_s) + u' ';
    stamp += Digits(random.Between(8, 19), 2);
    stamp += Digits(random.Below(60), 2);
    return stamp + Digits(random.Below(60), 2);
}

/// Timestamps of the row: created on joining or when the suite was introduced. The oldest rows have none.
void SetStamps(TableWriter& row, const Person& person, SampleRandom& random) {
    const QDate suiteCame(2005, 4, 1), joined = QDate::fromString(person.hired, u"yyyyMMdd"_s);
    const QDate made = qMax(suiteCame, joined).addDays(random.Between(0, 20));
    const int none = random.Below(100);
    if (none > 2) row.Set(u"登録日付"_s, AtOffice(made, random));
    if (none == 2) row.Set(u"登録日付"_s, u""_s);
    const auto days = static_cast<int>(made.daysTo(QDate(kReferenceYear, 10, 1)));
    if (days < 2 || !random.Percent(60)) return;
    const QDate changed = made.addDays(random.Between(1, days - 1));
    row.Set(u"更新日付"_s, AtOffice(changed, random));
}

void SetMemo(TableWriter& row, SampleRandom& random) {
    static constexpr const char16_t* kMemos[] = {
        u"日商簿記２級", u"普通自動車免許",     u"時短勤務（１６時まで）",         u"衛生管理者",
        u"英語対応可",   u"健康診断は秋に受診", u"フォークリフト運転技能講習修了", u"出向中",
    };
    row.Set(u"担当者メモ"_s, random.Percent(15) ? Text(random.Pick(std::span<const char16_t* const>(kMemos))) : u""_s);
}

void SetRights(TableWriter& row, const Person& person, SampleRandom& random) {
    static const QStringList kRights{u"操作許可"_s, u"入力許可"_s,     u"修正許可"_s,         u"削除許可"_s,
                                     u"印刷許可"_s, u"プレビュ許可"_s, u"テキスト出力許可"_s, u"イメージ出力許可"_s};
    const bool limited = !person.LaunchesPrograms() && random.Percent(8);
    row.Set(u"アクセス権限"_s, person.LaunchesPrograms() ? u"9"_s : u"1"_s);
    for (int digit = 0; digit < 10; ++digit)
        row.Set(u"処理分類%1操作許可"_s.arg(digit), limited && random.Percent(30) ? u"1"_s : u"0"_s);
    for (const QString& right : kRights) row.Set(right, limited && random.Percent(30) ? u"1"_s : u"0"_s);
}

}  // namespace

QString StaffCode(int place) { return Digits(place + 1, 5); }

void WriteStaff(DatabaseFileWriter& store, const StaffRequest& request) {
    TableWriter row(store, u"M担当者"_s);
    for (int place = 0; place < request.count; ++place) {
        SampleRandom random(request.seed, static_cast<quint64>(place));
        const Person person = MakePerson(place, random);
        SetIdentity(row, person, random);
        SetAddress(row, random);
        SetOrganisation(row, person, random);
        SetDates(row, person, random);
        SetMemo(row, random);
        SetStamps(row, person, random);
        SetRights(row, person, random);
        if (request.trialRights) SetTrialRights(row, place);
        row.Add();
    }
}

}  // namespace setup
