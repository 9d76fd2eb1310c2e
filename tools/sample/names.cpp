#include "sample/names.h"

#include <fmt/format.h>

#include <array>

namespace desk::sample {

namespace {

constexpr std::array surnames = {"王", "李", "张", "刘", "陈", "杨", "赵", "黄",   "周",  "吴", "徐",
                                 "孙", "胡", "朱", "高", "林", "何", "郭", "马",   "罗",  "梁", "宋",
                                 "郑", "谢", "韩", "唐", "冯", "于", "董", "萧",   "程",  "曹", "袁",
                                 "邓", "许", "傅", "沈", "曾", "彭", "吕", "欧阳", "上官"};
constexpr std::array givenNames = {"伟", "芳", "娜", "敏", "静", "丽", "强", "磊", "军", "洋", "勇", "艳",
                                   "杰", "娟", "涛", "明", "超", "霞", "平", "刚", "桂", "英", "华", "玉",
                                   "兰", "红", "梅", "鹏", "辉", "晨", "宇", "欣", "怡", "佳", "浩", "然",
                                   "雪", "琳", "博", "文", "志", "建", "国", "海", "云"};

constexpr std::array towns = {"上海", "上海", "上海", "上海", "苏州", "杭州",
                              "南京", "宁波", "无锡", "北京", "深圳"};
constexpr std::array brandStarts = {"鼎", "瑞", "恒", "盛", "华", "宏", "天", "中", "金", "新",
                                    "东", "嘉", "汇", "启", "博", "凯", "智", "联", "远", "永",
                                    "信", "诚", "达", "泰", "安", "隆", "润", "锦", "沃", "讯",
                                    "卓", "创", "优", "艾", "百", "万", "三", "益", "腾", "奥"};
constexpr std::array brandEnds = {"源", "通", "达", "科", "丰", "业", "海", "宇", "星", "辰",
                                  "峰", "力", "邦", "德", "和", "成", "胜", "康", "顺", "发",
                                  "祥", "佳", "凯", "尔", "特", "迪", "雅", "美", "思", "为",
                                  "诺", "维", "腾", "翔", "晟", "尚", "铭", "捷", "森", "帆"};
constexpr std::array legalForms = {"有限公司",     "有限公司",     "有限公司",
                                   "股份有限公司", "有限责任公司", "有限公司上海分公司"};

constexpr std::array informationWords = {"信息技术", "软件", "网络科技", "数据服务", "电子科技", "系统集成"};
constexpr std::array financeWords = {"投资管理", "资产管理", "融资租赁", "投资咨询", "保险代理", "创业投资"};
constexpr std::array tradingWords = {"国际贸易", "进出口", "贸易", "实业", "商贸", "供应链管理"};
constexpr std::array advertisingWords = {"广告", "文化传播", "品牌策划", "会展服务", "公关顾问", "影视传媒"};
constexpr std::array educationWords = {"教育培训", "教育科技", "文化交流", "语言培训", "职业培训"};
constexpr std::array designWords = {"建筑设计", "装饰工程", "工程咨询", "景观设计", "建筑装潢", "工程监理"};
constexpr std::array logisticsWords = {"国际货运代理", "物流", "快递服务", "船务代理", "仓储服务"};
constexpr std::array counselWords = {"企业管理咨询", "商务咨询", "知识产权代理", "财务咨询", "人力资源"};
constexpr std::array healthWords = {"医药", "医疗器械", "生物科技", "健康管理", "保健品"};
constexpr std::array retailWords = {"餐饮管理", "食品", "百货", "服饰", "家居用品", "美容美发"};
constexpr std::array industryWords = {"机械设备", "机电", "化工", "新材料", "自动化设备", "仪器仪表"};
constexpr std::array travelWords = {"旅行社", "票务代理", "酒店管理", "商务旅行服务"};

constexpr std::array<Trade, 12> allTrades = {{{"信息技术", informationWords},
                                              {"金融投资", financeWords},
                                              {"国际贸易", tradingWords},
                                              {"广告传媒", advertisingWords},
                                              {"教育培训", educationWords},
                                              {"建筑设计", designWords},
                                              {"物流运输", logisticsWords},
                                              {"咨询服务", counselWords},
                                              {"医药健康", healthWords},
                                              {"餐饮零售", retailWords},
                                              {"制造业", industryWords},
                                              {"旅游票务", travelWords}}};

constexpr std::array allRegions = {"黄浦区", "徐汇区",   "长宁区", "静安区", "普陀区", "闸北区", "虹口区",
                                   "杨浦区", "浦东新区", "闵行区", "宝山区", "嘉定区", "松江区", "外省市"};
constexpr std::array streets = {"人民路", "中山路", "解放路", "建设路", "和平路", "长江路",
                                "延安路", "复兴路", "南京路", "北京路", "四川路", "西藏路",
                                "淮海路", "衡山路", "江苏路", "武宁路"};

/// What `make` makes that is not in `used` yet.
template <class Make>
std::string fresh(std::unordered_set<std::string>& used, Make make) {
    for (;;)
        if (const auto [place, isNew] = used.insert(make()); isNew) return *place;
}

}  // namespace

std::span<const Trade> trades() {
    return allTrades;
}

std::span<const char* const> regions() {
    return allRegions;
}

std::string Names::person() {
    std::string name = random_.pick(surnames);
    name += random_.pick(givenNames);
    if (random_.chance(65)) name += random_.pick(givenNames);
    return name;
}

std::string Names::shortPerson() {
    return std::string(random_.pick(surnames)) + (random_.chance(60) ? "先生" : "小姐");
}

std::string Names::company(const Trade& trade) {
    return fresh(companies_, [&] { return someCompany(trade); });
}

std::string Names::phone() {
    return fresh(phones_, [&] { return somePhone(); });
}

std::string Names::address(std::string_view region) {
    // One after the other: the order in which arguments are worked out is nobody's promise.
    const char* street = random_.pick(streets);
    return fmt::format("{}{}{}号", region, street, random_.between(1, 1999));
}

std::string Names::someCompany(const Trade& trade) {
    std::string name = random_.pick(towns);
    name += random_.pick(brandStarts);
    name += random_.pick(brandEnds);
    name += random_.pick(trade.words);
    return name + random_.pick(legalForms);
}

std::string Names::somePhone() {
    constexpr std::array mobileStarts = {"130", "131", "133", "135", "136", "137",
                                         "138", "139", "150", "158", "186", "189"};
    if (random_.chance(35)) return fmt::format("021-{:08}", random_.between(5'000'0000, 6'899'9999));
    const std::string start = random_.pick(mobileStarts);
    return start + fmt::format("{:08}", random_.between(0, 9999'9999));
}

}  // namespace desk::sample
