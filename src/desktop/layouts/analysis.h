#pragma once

#include <QWidget>

#include "analysis/classification.h"
#include "analysis/excel_export.h"
#include "analysis/status_analysis.h"
#include "analysis/weekly_analysis.h"

namespace desk::desktop {

QWidget* layoutOfClassification(Frm客户分类统计& screen);
QWidget* layoutOfStatusAnalysis(Frm客户跟进状态分析& screen);
QWidget* layoutOfWeekly(每周统计分析& screen);
QWidget* layoutOfExport(FrmToExcel& screen);

}  // namespace desk::desktop
