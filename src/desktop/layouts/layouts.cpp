#include "desktop/layouts/layouts.h"

#include <stdexcept>

#include "analysis/excel_export.h"
#include "analysis/status_analysis.h"
#include "customers/assignment.h"
#include "customers/follow_up.h"
#include "customers/registration.h"
#include "desktop/layout.h"
#include "desktop/layouts/each.h"
#include "reference/agencies.h"
#include "reference/customer_dictionaries.h"
#include "reference/lead_settings.h"
#include "reference/personnel.h"
#include "session/about.h"
#include "session/login.h"

namespace desk::desktop {

namespace {

template <class S>
bool laid(Screen& screen, QWidget* (*make)(S&), QWidget*& made) {
    auto* kind = dynamic_cast<S*>(&screen);
    if (kind != nullptr) made = make(*kind);
    return kind != nullptr;
}

}  // namespace

QWidget* layoutOf(Screen& screen) {
    QWidget* made = nullptr;
    if (!laid(screen, layoutOfLogin, made) && !laid(screen, layoutOfAbout, made) &&
        !laid(screen, layoutOfRegistration, made) && !laid(screen, layoutOfAssignment, made) &&
        !laid(screen, layoutOfFollowUp, made) && !laid(screen, layoutOfStatusAnalysis, made) &&
        !laid(screen, layoutOfExport, made) && !laid(screen, layoutOfPersonnel, made) &&
        !laid(screen, layoutOfAgencies, made) && !laid(screen, layoutOfCustomerDictionaries, made) &&
        !laid(screen, layoutOfLeadSettings, made))
        throw std::logic_error("no layout for " + screen.name());
    layout::orderTabs(made);
    return made;
}

}  // namespace desk::desktop
