#pragma once

#include <QString>

namespace desk::desktop {

/// The caption with the letter that chooses it together with Alt, as "确定(&S)"; unchanged where it has none.
QString withMnemonic(const QString& caption);

/// The caption without the letter.
QString withoutMnemonic(const QString& shown);

}  // namespace desk::desktop
