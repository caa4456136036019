// Part of TemplateSyntax.h: the words of a line.

#include "report-host/template/TemplateSyntax.h"

using namespace Qt::StringLiterals;

namespace report {

namespace {

bool IsBlank(QChar c) { return c == u' ' || c == u'\t' || c == u'\r' || c == QChar(0x3000); }

class WordReader {
  public:
    WordReader(const QString& text, int number) : text_(text), number_(number) {}

    std::optional<TemplateWord> Next() {
        while (at_ < text_.size() && IsBlank(text_[at_])) ++at_;
        if (at_ == text_.size() || text_[at_] == u'#') return std::nullopt;
        TemplateWord word;
        if (text_[at_] == u'"') {
            ReadQuoted(word);
            return word;
        }
        while (at_ < text_.size() && !IsBlank(text_[at_])) {
            const QChar c = text_[at_++];
            if (c != u'=' || word.IsSetting()) {
                word.text += c;
                continue;
            }
            if (word.text.isEmpty()) throw TemplateError{number_, u"「=」の前に名前がありません。"_s};
            word.name = std::exchange(word.text, QString());
            if (at_ < text_.size() && text_[at_] == u'"') {
                ReadQuoted(word);
                return word;
            }
        }
        return word;
    }

  private:
    void ReadQuoted(TemplateWord& word) {
        word.quoted = true;
        for (++at_; at_ < text_.size(); ++at_) {
            if (text_[at_] == u'"' && at_ + 1 < text_.size() && text_[at_ + 1] == u'"')
                ++at_;
            else if (text_[at_] == u'"') {
                if (++at_ < text_.size() && !IsBlank(text_[at_]))
                    throw TemplateError{number_, u"閉じる引用符の後ろに空白がありません。"_s};
                return;
            }
            word.text += text_[at_];
        }
        throw TemplateError{number_, u"引用符が閉じていません。"_s};
    }

    const QString& text_;
    int number_;
    qsizetype at_ = 0;
};

}  // namespace

std::optional<TemplateToken> ReadTemplateLine(const QString& text, int number) {
    WordReader reader(text, number);
    const std::optional<TemplateWord> command = reader.Next();
    if (!command) return std::nullopt;
    if (command->quoted || command->IsSetting()) throw TemplateError{number, u"行が命令で始まっていません。"_s};
    TemplateToken line{number, command->text, {}};
    while (const std::optional<TemplateWord> word = reader.Next()) line.words.append(*word);
    return line;
}

}  // namespace report
