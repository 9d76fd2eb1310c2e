#include "analysis/classification.h"
#include "analysis/excel_export.h"
#include "analysis/status_analysis.h"
#include "analysis/weekly_analysis.h"
#include "support/transcripts_of_room.h"

namespace desk {
namespace {

TRANSCRIPTS_OF_ROOM((
    offerScreens<Frm客户跟进状态分析, Frm客户分类统计, FrmToExcel, Frm每周来客统计分析, Frm每周来电统计分析>))

}  // namespace
}  // namespace desk
