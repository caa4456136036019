#pragma once

#include <QString>
#include <QStringList>
#include <QTextStream>

namespace setup {

/// Prints each fault of an installation as it is found, and counts the faults.
class CheckReport {
  public:
    explicit CheckReport(QTextStream& out) : out_(out) {}
    void Add(const QString& fault) {
        ++count_;
        out_ << QStringLiteral("・") << fault << u'\n';
    }
    void Add(const QStringList& faults) {
        for (const QString& fault : faults) Add(fault);
    }
    int Count() const { return count_; }

  private:
    QTextStream& out_;
    int count_ = 0;
};

}  // namespace setup
