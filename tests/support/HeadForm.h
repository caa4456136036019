#pragma once

#include <QString>
#include <memory>
#include <vector>

#include "screen/Control.h"
#include "screen/Form.h"

/// Fake control: stores what is written to it and emits nothing.
class PlainItem : public Control {
  public:
    PlainItem(Form& form, QString name, int index = -1);

    QString Text() const override { return text; }
    void SetText(const QString& value) override { text = value; }
    QString Caption() const override { return text; }
    void SetCaption(const QString& value) override { text = value; }
    int Value() const override { return value_; }
    void SetValue(int value) override { value_ = value; }
    int MaxValue() const override { return maxValue; }
    void SetMaxValue(int value) override { maxValue = value; }
    int ListIndex() const override { return listIndex; }
    void SetListIndex(int index) override { listIndex = index; }
    int MaxLength() const override { return maxLength; }
    QColor ForeColor() const override { return foreColor; }
    void SetForeColor(const QColor& color) override { foreColor = color; }

    QString text;
    int maxValue = 0;
    int listIndex = -1;
    int maxLength = 0;
    QColor foreColor;

  private:
    int value_ = 0;
};

/// Fake main form for the inquiry's procedures, without a window: head, お知らせ and row items. 在籍区分 has two
/// classes, 社員区分 four, as in a sample installation.
class HeadForm : public Form {
  public:
    HeadForm();

    PlainItem& Plain(const QString& name, int index = -1) const;

  private:
    void Add(const QString& name, int index = -1);

    std::vector<std::unique_ptr<PlainItem>> items_;
};
