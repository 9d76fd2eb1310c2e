#pragma once

#include <QTranslator>

namespace desk::desktop {

/// The few words of Qt's own dialogs that its Chinese translation leaves in English.
class Words : public QTranslator {
  public:
    using QTranslator::QTranslator;

    QString translate(const char* context, const char* source, const char* disambiguation,
                      int n) const override;
    bool isEmpty() const override { return false; }
};

}  // namespace desk::desktop
