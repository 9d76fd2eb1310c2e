#pragma once

#include <QString>
#include <QStringList>

namespace desk::tax {

/// How the program is set up, and what it is told to do wrong. Each of them is an option of the command line
/// or, as it is mostly started by another program and without any, a variable of the environment.
struct Options {
    QString folder;   ///< where it keeps its settings, by default the user's folder for data
    QString journal;  ///< what was printed, by default in that folder
    QString firstNumber = "30843100";
    QString user = "01";
    QString password = "123456";
    QString title = "税控发票开票软件";

    int slow = 0;           ///< milliseconds until its first window is there
    QString number;         ///< shown instead of the number that comes next
    bool noNumber = false;  ///< shows none
    QString refusal;        ///< what the device says instead of printing
    int dieAt = 0;          ///< the field of the invoice, counted from 1, at which the program dies

    /// From the words of the command line, the first of which is the program. A wrong word ends the process.
    static Options read(const QStringList& words);
};

}  // namespace desk::tax
