#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "sample/organisation.h"

namespace desk::sample {

inline constexpr std::array kindsOfEnterprise = {"国有企业",   "民营企业",   "外商独资", "中外合资",
                                                 "股份制企业", "个体工商户", "事业单位"};
inline constexpr std::array media = {"报纸广告", "网络推广", "户外广告牌", "朋友介绍",  "路过来访",
                                     "直邮资料", "展会",     "电视广告",   "老客户介绍"};
inline constexpr std::array enquiries = {"租金",     "面积",   "交通",     "物业管理费", "停车位",
                                         "装修标准", "免租期", "交房时间", "楼层朝向",   "配套设施"};

/// A state of the follow-up. The first ones lead on to a letter, in their order; the last two end it without
/// one.
struct State {
    const char* 状态编号;
    const char* 状态名称;
    int 颜色;  ///< red in the lowest byte
};

std::span<const State> states();

/// Names of the agencies, by office.
using Agencies = std::vector<std::vector<std::string>>;

/// Adds the five dictionaries, the states and the agencies of each office.
Agencies addDictionaries(Connection& connection, Random& random, const std::vector<Office>& offices);

}  // namespace desk::sample
