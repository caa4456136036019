#include "report-host/template/TemplateParser.h"

#include <QSet>
#include <algorithm>

#include "report-host/template/TemplateCheck.h"
#include "report-host/template/TemplateLimits.h"
#include "report-host/template/TemplateSettings.h"
#include "report-host/template/TemplateValues.h"
#include "report-host/template/TextPattern.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

struct NamedPaper {
    QStringView name;
    double width, height;
};
constexpr NamedPaper kPapers[] = {{u"A4", 210, 297},     {u"A5", 148, 210},     {u"B4", 257, 364},
                                  {u"B5", 182, 257},     {u"はがき", 100, 148}, {u"長形3号", 120, 235},
                                  {u"長形4号", 90, 205}, {u"角形2号", 240, 332}};

class FormReader {
  public:
    ParsedForm Read(const QString& text) {
        if (text.size() > kMostFormText || text.count(u'\n') >= kMostFormLines) return TooLong();
        const QStringList lines = text.split(u'\n');
        for (qsizetype i = 0; i < lines.size(); ++i) ReadLine(lines[i], static_cast<int>(i) + 1);
        CheckForm(parsed_.form, parsed_.mistakes);
        return std::move(parsed_);
    }

  private:
    static ParsedForm TooLong() {
        return {
            {},
            {{0, u"定義が長すぎます。%1 行、%2 文字までにしてください。"_s.arg(kMostFormLines).arg(kMostFormText)}}};
    }

    struct Command {
        QStringView name;
        int places;  // required words before the settings
        QStringView usage;
        bool once;
        void (FormReader::*read)(const TemplateToken&);
    };
    static const Command kCommands[];

    void ReadLine(const QString& text, int number) {
        try {
            const std::optional<TemplateToken> line = ReadFormLine(text, number);
            if (!line) return;
            const Command& command = CommandOf(*line);
            (this->*command.read)(*line);
        } catch (const TemplateError& mistake) {
            parsed_.mistakes.append({number, mistake.reason});
        }
    }

    const Command& CommandOf(const TemplateToken& line);

    void Settings(const TemplateToken& line, qsizetype firstWord) {
        FormElement none;
        ApplySettings(line, firstWord, {parsed_.form, none});
    }

    void ReadPaper(const TemplateToken& line) {
        const QString& word = line.words[0].text;
        const auto* paper =
            std::find_if(std::begin(kPapers), std::end(kPapers), [&](const NamedPaper& p) { return p.name == word; });
        parsed_.form.page =
            paper == std::end(kPapers) ? ReadSize(word, u"用紙"_s) : QSizeF(paper->width, paper->height);
        Settings(line, 1);
    }

    void ReadSettingsOnly(const TemplateToken& line) { Settings(line, 0); }

    void ReadTable(const TemplateToken& line) {
        parsed_.form.table = line.words[0].text;
        Settings(line, 1);
    }

    void ReadOrder(const TemplateToken& line) {
        for (const FormWord& word : line.words) {
            if (word.IsSetting()) throw TemplateError{0, u"並びに「%1」という指定はありません。"_s.arg(word.name)};
            parsed_.form.order.append(word.text);
        }
    }

    void ReadEra(const TemplateToken& line) {
        parsed_.form.eras.append({ReadDay(line.words[0].text, u"年号の開始日付"_s), line.words[1].text});
        Settings(line, 2);
    }

    void ReadDefaultFace(const TemplateToken& line) {
        style_.face = ReadFace(line.words[0].text);
        style_.points = ReadPoints(line.words[1].text, u"書体の大きさ"_s);
        Settings(line, 2);
    }

    void ReadGrid(const TemplateToken& line) {
        parsed_.form.grid.emplace().line = line.number;
        Settings(line, 0);
    }

    void ReadSection(const TemplateToken& line, FormSection& section) {
        section_ = &section;
        section.line = line.number;
        const FormWord& height = line.words[0];
        if (height.name != u"高さ"_s)
            throw TemplateError{0, u"%1の後ろに 高さ=… を書いてください。"_s.arg(line.command)};
        section.height = ReadLength(height.text, height.name);
        Settings(line, 1);
    }
    void ReadHead(const TemplateToken& line) { ReadSection(line, parsed_.form.head); }
    void ReadDetail(const TemplateToken& line) { ReadSection(line, parsed_.form.detail); }
    void ReadFoot(const TemplateToken& line) { ReadSection(line, parsed_.form.foot); }

    void ReadElement(const TemplateToken& line);

    ParsedForm parsed_;
    QSet<QString> seen_;
    TextStyle style_;  // default for the following texts
    FormSection* section_ = nullptr;
    int elements_ = 0;
};

const FormReader::Command FormReader::kCommands[] = {
    {u"用紙", 1, u"幅x高さ か用紙の名前", true, &FormReader::ReadPaper},
    {u"余白", 1, u"左=… 上=… 右=… 下=…", true, &FormReader::ReadSettingsOnly},
    {u"補正", 1, u"右=… 下=…", true, &FormReader::ReadSettingsOnly},
    {u"表", 1, u"リンクテーブルの名前", true, &FormReader::ReadTable},
    {u"並び", 1, u"列の名前", true, &FormReader::ReadOrder},
    {u"年号", 2, u"開始日付 名称", false, &FormReader::ReadEra},
    {u"書体", 2, u"書体の名前 大きさ", false, &FormReader::ReadDefaultFace},
    {u"升目", 1, u"横=… 縦=… 左=… 上=… 横間隔=… 縦間隔=…", true, &FormReader::ReadGrid},
    {u"頁頭", 1, u"高さ=…", true, &FormReader::ReadHead},
    {u"明細", 1, u"高さ=…", true, &FormReader::ReadDetail},
    {u"頁脚", 1, u"高さ=…", true, &FormReader::ReadFoot},
    {u"文字", 3, u"左,上 幅x高さ \"内容\"", false, &FormReader::ReadElement},
    {u"数字枠", 3, u"左,上 幅x高さ \"内容\"", false, &FormReader::ReadElement},
    {u"絵", 3, u"左,上 幅x高さ \"ファイル\"", false, &FormReader::ReadElement},
    {u"枠", 2, u"左,上 幅x高さ", false, &FormReader::ReadElement},
    {u"線", 2, u"左,上 左,上", false, &FormReader::ReadElement},
};

const FormReader::Command& FormReader::CommandOf(const TemplateToken& line) {
    const auto* command = std::find_if(std::begin(kCommands), std::end(kCommands),
                                       [&](const Command& c) { return c.name == line.command; });
    if (command == std::end(kCommands)) throw TemplateError{0, u"「%1」という命令はありません。"_s.arg(line.command)};
    if (line.words.size() < command->places)
        throw TemplateError{0, u"%1の後ろに %2 を書いてください。"_s.arg(line.command, command->usage)};
    if (command->once && seen_.contains(line.command))
        throw TemplateError{0, u"「%1」が二度あります。"_s.arg(line.command)};
    seen_.insert(line.command);
    return *command;
}

ElementKind KindOf(const QString& command) {
    if (command == u"文字"_s) return ElementKind::Text;
    if (command == u"数字枠"_s) return ElementKind::DigitBoxes;
    if (command == u"絵"_s) return ElementKind::Picture;
    return command == u"枠"_s ? ElementKind::Frame : ElementKind::Line;
}

void FormReader::ReadElement(const TemplateToken& line) {
    if (!section_)
        throw TemplateError{0, u"%1は 頁頭、明細、頁脚 のどれかの後ろに書いてください。"_s.arg(line.command)};
    FormElement element;
    element.kind = KindOf(line.command);
    element.line = line.number;
    element.style = style_;
    qsizetype used = 2;
    const QPointF corner = ReadPoint(line.words[0].text, u"位置"_s);
    if (element.kind == ElementKind::Line)
        element.place = QRectF(corner, ReadPoint(line.words[1].text, u"位置"_s));
    else
        element.place = QRectF(corner, ReadSize(line.words[1].text, u"大きさ"_s));
    if (element.kind != ElementKind::Line && element.kind != ElementKind::Frame) {
        if (!line.words[2].quoted) throw TemplateError{0, u"内容を引用符「\"」で囲んでください。"_s};
        element.text = ReadPattern(line.words[2].text);
        used = 3;
    }
    ApplySettings(line, used, {parsed_.form, element});
    // Reported once; further elements are ignored.
    if (++elements_ <= kMostElements) return section_->elements.append(element);
    if (elements_ == kMostElements + 1)
        throw TemplateError{0, u"部品が多すぎます。%1 個までにしてください。"_s.arg(kMostElements)};
}

}  // namespace

ParsedForm ParseForm(const QString& text) { return FormReader().Read(text); }

}  // namespace report
