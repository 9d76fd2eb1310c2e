#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>

#include "db/embedded/embedded.h"
#include "desktop/edge.h"
#include "desktop/program.h"
#include "sample/sample.h"
#include "tour/itinerary.h"

namespace {

/// A sample property of the tour's own, and settings that name it.
void prepare(const std::string& folder) {
    using namespace desk;
    const std::string file = folder + "/tour.db";
    embedded::createDatabase(file);
    Connection connection;
    connection.open("Initial Catalog='" + file + "';Data Source='(embedded)'", std::chrono::seconds(10));
    sample::Size size;
    size.leads = 300;
    sample::fill(connection, size, SystemClock().today(),
                 SystemFiles::executableDirectory() + "/tax-program");
    IniSettings settings(folder);
    settings.write("鸿序楼台", "DBConfig", "Svr", "(embedded)");
    settings.write("鸿序楼台", "DBConfig", "DBname", file);
    qputenv("XDG_CONFIG_HOME", folder.c_str());
    qputenv("TAX_PROGRAM_FOLDER", (folder + "/tax-program").c_str());
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QCommandLineParser options;
    const QCommandLineOption pictures("pictures", "The folder for the pictures.", "folder", "pictures");
    options.addOption(pictures);
    options.addHelpOption();
    options.process(application);

    desk::desktop::dress();
    QTemporaryDir folder;
    try {
        prepare(folder.path().toStdString());
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    desk::Connection looking;
    looking.open("Initial Catalog='" + folder.path().toStdString() + "/tour.db';Data Source='(embedded)'",
                 std::chrono::seconds(10));

    desk::desktop::Program program;
    desk::tour::Witness witness(looking);
    desk::tour::Tour tour(options.value(pictures));
    tour.atEnd = [&folder] { folder.remove(); };
    desk::tour::logIn(tour);
    desk::tour::registerLeads(tour, witness);
    desk::tour::assignLead(tour, witness);
    desk::tour::keepReferenceData(tour, witness);
    desk::tour::layPaths(tour, witness);
    desk::tour::changeTo(tour, "1015");
    desk::tour::followLeadUp(tour, witness);
    desk::tour::writeLetters(tour, witness);
    desk::tour::changeTo(tour, "1001");
    desk::tour::decideFirst(tour, witness);
    desk::tour::analyseStates(tour, witness, folder.path());
    desk::tour::classifyCustomers(tour, witness, folder.path());
    desk::tour::countWeeks(tour, witness, folder.path());
    desk::tour::changeTo(tour, "1009");
    desk::tour::decideLast(tour, witness);
    desk::tour::changeTo(tour, "1010");
    desk::tour::showCashiersMenu(tour);
    desk::tour::takeDeposits(tour, witness, program.app.platform, folder.path() + "/tax-program/journal.txt");
    desk::desktop::enter([&] { program.app.start({}); });
    tour.start();
    return QApplication::exec();
}
