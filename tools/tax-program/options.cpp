#include "tax-program/options.h"

#include <QCommandLineParser>
#include <QStandardPaths>
#include <functional>
#include <vector>

namespace desk::tax {

namespace {

struct Option {
    QString name;
    QString value;  ///< what stands for its value in the help; empty for a switch
    QString meaning;
    std::function<void(Options&, const QString&)> take;
};

const std::vector<Option>& allOptions() {
    static const std::vector<Option> all = {
        {"folder", "folder", "Where the settings are kept.", [](auto& o, auto& v) { o.folder = v; }},
        {"journal", "file", "What was printed.", [](auto& o, auto& v) { o.journal = v; }},
        {"first-number", "number", "The first number of a new roll.",
         [](auto& o, auto& v) { o.firstNumber = v; }},
        {"user", "name", "Who may log in.", [](auto& o, auto& v) { o.user = v; }},
        {"password", "word", "With which password.", [](auto& o, auto& v) { o.password = v; }},
        {"title", "text", "The title of the main window.", [](auto& o, auto& v) { o.title = v; }},
        {"slow", "ms", "Waits so long before its first window.",
         [](auto& o, auto& v) { o.slow = v.toInt(); }},
        {"number", "number", "Shows this number instead of the next one.",
         [](auto& o, auto& v) { o.number = v; }},
        {"no-number", "", "Shows no number.", [](auto& o, auto&) { o.noNumber = true; }},
        {"refuse", "text", "Refuses to print, with this text.", [](auto& o, auto& v) { o.refusal = v; }},
        {"die-at", "n", "Dies at the n-th field of an invoice.",
         [](auto& o, auto& v) { o.dieAt = v.toInt(); }}};
    return all;
}

QString variable(const Option& option) {
    return "TAX_PROGRAM_" + option.name.toUpper().replace('-', '_');
}

}  // namespace

Options Options::read(const QStringList& words) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Prints tax invoices into a text file, as a device for them would on paper.");
    parser.addHelpOption();
    for (const Option& option : allOptions())
        parser.addOption({option.name, option.meaning + " (" + variable(option) + ")", option.value});
    parser.process(words);

    Options options;
    for (const Option& option : allOptions()) {
        const QString fromOutside = qEnvironmentVariable(qUtf8Printable(variable(option)));
        if (parser.isSet(option.name))
            option.take(options, option.value.isEmpty() ? QString() : parser.value(option.name));
        else if (!fromOutside.isEmpty())
            option.take(options, fromOutside);
    }
    if (options.folder.isEmpty())
        options.folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (options.journal.isEmpty()) options.journal = options.folder + "/journal.txt";
    return options;
}

}  // namespace desk::tax
