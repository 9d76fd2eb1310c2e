#include "sample/sample.h"

#include "db/transaction.h"
#include "sample/dictionaries.h"
#include "sample/leads.h"
#include "sample/letters.h"
#include "sample/money.h"
#include "sample/organisation.h"
#include "sample/property.h"
#include "sample/tax_device.h"

namespace desk::sample {

namespace {

constexpr std::size_t leadsALetter = 50;

void fillAll(Connection& connection, const Size& size, const DateTime& today, std::string_view taxProgram) {
    std::uint64_t lastStream = 0;
    const auto stream = [&] { return Random(size.seed, ++lastStream); };
    Random forPeople = stream();
    Random forWords = stream();
    Random forBuildings = stream();
    Random forLeads = stream();
    Random forLetters = stream();
    Random forMoney = stream();

    const Organisation organisation = addOrganisation(connection, forPeople, size.staff, today);
    const Agencies agencies = addDictionaries(connection, forWords, organisation.offices);
    FreeUnits free = addProperty(connection, forBuildings, organisation, size.units, today);
    const auto prospects =
        addLeads(connection, forLeads, organisation, agencies, size.leads, size.years, today);
    const auto most = static_cast<std::size_t>(size.leads) / leadsALetter;
    const auto passed = addLetters(connection, forLetters, organisation, prospects, free, most, today);
    addMoney(connection, forMoney, organisation, passed, today);
    addTaxDevice(connection, organisation, today, taxProgram);
}

}  // namespace

void fill(Connection& connection, const Size& size, const DateTime& today, std::string_view taxProgram) {
    Transaction all(connection);
    fillAll(connection, size, today, taxProgram);
    all.commit();
}

Limits leadLimits() {
    return {0, 1'000'000};
}
Limits unitLimits() {
    return {0, 100'000};
}
Limits staffLimits() {
    return {fewestStaff(), 900};
}
Limits yearLimits() {
    return {1, 20};
}

}  // namespace desk::sample
