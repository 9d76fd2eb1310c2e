#include "sample/dictionaries.h"

#include <fmt/format.h>

#include "sample/filler.h"

namespace desk::sample {

namespace {

constexpr int packed(int red, int green, int blue) {
    return red | green << 8 | blue << 16;
}

constexpr std::array<State, 10> allStates = {{{"1", "初次接触", packed(66, 133, 244)},
                                              {"2", "资料已寄", packed(0, 172, 193)},
                                              {"3", "已约看房", packed(124, 179, 66)},
                                              {"4", "已看房", packed(251, 192, 45)},
                                              {"5", "有意向", packed(251, 140, 0)},
                                              {"6", "价格洽谈", packed(216, 67, 130)},
                                              {"7", "意向签约", packed(142, 36, 170)},
                                              {"8", "已成交", packed(46, 125, 50)},
                                              {"9", "暂缓", packed(144, 164, 174)},
                                              {"10", "放弃", packed(97, 97, 97)}}};

template <class List>
void addNamed(Connection& connection, Name table, std::string_view column, const List& names) {
    Filler rows(connection, table, {column, "说明"});
    for (const char* name : names) rows.add({name, ""});
}

std::vector<std::string> addAgencies(Connection& connection, Random& random, Names& names,
                                     const Office& office) {
    constexpr std::array brands = {"安居", "中域", "佳信", "汇众", "同城",
                                   "楼易", "世邦", "德佑", "盛业", "华迅"};
    constexpr std::array banks = {"工商银行", "建设银行", "招商银行", "交通银行"};
    Filler rows(connection, "YZ_中介公司设置",
                {"管理处代号", "公司名称", "法人代表", "负责人", "负责人电话", "公司地址", "公司传真",
                 "联系人", "联系人电话", "开户银行", "银行帐号", "其它信息"});
    std::vector<std::string> made;
    const std::size_t first = random.below(brands.size());
    for (std::size_t i = 0; i < 8; ++i) {
        const char* brand = brands[(first + i) % brands.size()];
        made.push_back(fmt::format("上海{}房地产经纪有限公司", brand));
        const bool known = random.chance(70);
        rows.add({office.代号,
                  made.back(),
                  names.person(),
                  names.person(),
                  names.phone(),
                  names.address(random.pick(regions())),
                  known ? Value(names.phone()) : Value(),
                  names.person(),
                  names.phone(),
                  known ? Value(random.pick(banks)) : Value(),
                  known ? Value(fmt::format("62{:014}", random.below(100'000'000'000'000U))) : Value(),
                  {}});
    }
    return made;
}

}  // namespace

std::span<const State> states() {
    return allStates;
}

Agencies addDictionaries(Connection& connection, Random& random, const std::vector<Office>& offices) {
    addNamed(connection, "YZ_区域设置", "区域名称", regions());
    addNamed(connection, "YZ_企业性质设置", "企业性质名称", kindsOfEnterprise);
    addNamed(connection, "YZ_媒体设置", "媒体名称", media);
    addNamed(connection, "YZ_咨询内容设置", "咨询内容", enquiries);
    Filler tradeRows(connection, "YZ_行业设置", {"行业名称", "说明"});
    for (const Trade& trade : trades()) tradeRows.add({trade.name, ""});
    Filler stateRows(connection, "YZ_跟进状态设置", {"状态编号", "状态名称", "颜色表示", "说明"});
    for (const State& state : states()) stateRows.add({state.状态编号, state.状态名称, state.颜色, ""});

    Names names(random);
    Agencies agencies;
    for (const Office& office : offices) agencies.push_back(addAgencies(connection, random, names, office));
    return agencies;
}

}  // namespace desk::sample
