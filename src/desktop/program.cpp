#include "desktop/program.h"

#include <QApplication>
#include <QFont>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "analysis/excel_export.h"
#include "analysis/status_analysis.h"
#include "customers/assignment.h"
#include "customers/follow_up.h"
#include "customers/registration.h"
#include "reference/agencies.h"
#include "reference/customer_dictionaries.h"
#include "reference/lead_settings.h"
#include "reference/personnel.h"

/// The pictures lie in a library, from which nothing is linked that nobody names.
static void linkPictures() {
    Q_INIT_RESOURCE(pictures);
}

namespace desk::desktop {

namespace {

template <class S>
void offer(Application& app) {
    app.screens.offer(S::screenName, [&app] { return std::make_unique<S>(app); });
}

}  // namespace

void dress() {
    linkPictures();
    QApplication::setApplicationName("引驻台账");
    QApplication::setWindowIcon(QIcon(":/icon.png"));
    const QLocale chinese(QLocale::Chinese, QLocale::China);
    QLocale::setDefault(chinese);
    // The words of Qt's own dialogs; without the file they stay English.
    auto* words = new QTranslator(qApp);
    if (words->load(chinese, "qtbase", "_", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(words);
    // Without it a system of another language shows Chinese signs in that language's shapes.
    QFont font = QApplication::font();
    font.setFamilies({"Noto Sans CJK SC", "Source Han Sans SC", "WenQuanYi Micro Hei", font.family()});
    QApplication::setFont(font);
}

Program::Program() : app(desktop, Platform{clock, settings, files, programs, spreadsheets}) {
    desktop.serve(app.screens);
    offer<Frm引驻客户信息登记>(app);
    offer<Frm客户跟进信息分配>(app);
    offer<Frm客户跟进记录>(app);
    offer<Frm客户跟进状态分析>(app);
    offer<FrmToExcel>(app);
    offer<Frm人员设置>(app);
    offer<Frm中介公司设置>(app);
    offer<Frm客户相关信息设置>(app);
    offer<Frm引驻设置>(app);
}

}  // namespace desk::desktop
