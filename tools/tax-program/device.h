#pragma once

#include "tax-program/invoice.h"
#include "tax-program/options.h"

namespace desk::tax {

/// The device behind the program: it has a roll of numbered invoices, of which it remembers the next, and
/// prints into the journal: one line a field, a blank line after each invoice.
class Device {
  public:
    explicit Device(Options options) : options_(std::move(options)) {}

    const Options& options() const { return options_; }

    /// The number of the invoice that comes next.
    QString number() const;
    /// That of the one before, empty before the first.
    QString lastPrinted() const;

    /// Prints, and goes on to the next number. Gives what went wrong, empty when all went well.
    QString print(const Invoice& invoice);
    /// Takes back an invoice that was printed and was not taken back yet. Gives what went wrong.
    QString takeBack(const QString& number, const QString& reason);
    /// Another roll is put in, which begins with that number.
    void load(const QString& number) { remember("next", number); }

  private:
    QString recall(const char* key, const QString& fallback) const;
    void remember(const char* key, const QString& value);
    QString append(const QStringList& lines);
    bool isOut(const QString& number) const;

    Options options_;
};

}  // namespace desk::tax
