#include "session/session_record.h"

namespace desk {

std::array<std::string*, SessionRecord::fieldCount> SessionRecord::fields() {
    return {&登录工号,     &登录姓名,         &登录部门编号,     &登录部门名称,     &登录岗位代号,
            &登录岗位名称, &登录部门类别代号, &登录部门类别名称, &登录岗位类别编号, &登录岗位类别名称};
}

}  // namespace desk
