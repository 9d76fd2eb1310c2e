#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/statement.h"
#include "session/application.h"

namespace desk {

/// One step of the script that works the tax program. `X` and `Y` stay text: what they mean depends on the
/// step.
struct 税控操作步骤 {
    std::string Stage;
    std::string Operate_type;
    std::string X;
    std::string Y;
    std::string KeyString;
    std::string Remark;
    std::int32_t ID = 0;

    /// Whether it is a step of logging in, which a program that runs already does not need.
    bool 登录() const { return Stage == "登录阶段"; }
};

/// A charge item of ours, as the tax program knows it.
struct 税控收费项目 {
    std::string 项目编号;
    std::string 项目名称;
    std::string XM_Num;  ///< the code that is typed there
    std::string XM_Name;
    std::int16_t XM_Xu = 0;  ///< its position in the list there, from 1
};

/// The department's tax device in service.
struct 税控机 {
    std::string ID;
    std::string 软件名称;    ///< path and file name of the tax program
    std::string 启动后名称;  ///< the title of its window
};

/// Who works the tax program.
struct 税控操作员 {
    std::string 用户名;
    std::string 密码;
};

/// A path, parted behind its last separator; both empty where it has none.
struct 软件位置 {
    std::string 目录;
    std::string 文件名;

    /// A slash parts folders as a backslash does.
    static 软件位置 分解(std::string_view path);
};

/// What a screen that prints by the tax program reads once as it opens. The lists are empty until they are
/// read; one without a row holds a blank element.
struct 税控配置 {
    软件位置 软件;
    税控操作员 操作员;
    std::vector<税控操作步骤> 打印步骤;
    std::vector<税控操作步骤> 退票步骤;
    std::vector<税控收费项目> 收费项目对照;
};

/// The first device of the department of the session; nothing where none is in service.
std::optional<税控机> 读取税控机(Application& app);
/// The log-in of the person of the session; nothing for one who does not work the device.
std::optional<税控操作员> 读取操作员(Application& app, std::string_view 税控ID);
/// A script, in the order of its steps. Fails with 94 where a step has no type.
std::vector<税控操作步骤> 读取步骤(Application& app, Name table, std::string_view 税控ID);
std::vector<税控收费项目> 读取收费项目(Application& app, std::string_view 税控ID);

}  // namespace desk
