#include "db/odbc/odbc_connection.h"

#include <sqlext.h>
#include <sqlucode.h>

#include "base/text.h"

namespace desk::odbc {

namespace {

SQLPOINTER asAttribute(SQLULEN value) {
    return reinterpret_cast<SQLPOINTER>(value);
}

void require(SQLRETURN result) {
    if (!SQL_SUCCEEDED(result))
        throw RuntimeFailure(failure::unspecified, "本机的 ODBC 不能使用，请检查 unixODBC 的安装。");
}

}  // namespace

OdbcConnection::OdbcConnection(std::chrono::seconds timeout) : timeout_(timeout) {
    require(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_));
    require(SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, asAttribute(SQL_OV_ODBC3), 0));
    require(SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_));
    const auto seconds = static_cast<SQLULEN>(timeout.count());
    SQLSetConnectAttrW(connection_, SQL_ATTR_LOGIN_TIMEOUT, asAttribute(seconds), SQL_IS_UINTEGER);
}

OdbcConnection::~OdbcConnection() {
    if (connected_) SQLDisconnect(connection_);
    if (connection_ != nullptr) SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    if (environment_ != nullptr) SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

bool OdbcConnection::isLost() const {
    SQLUINTEGER dead = SQL_CD_FALSE;
    SQLGetConnectAttrW(connection_, SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER, nullptr);
    return dead == SQL_CD_TRUE;
}

std::vector<Diagnosis> OdbcConnection::connect(const std::string& driverText) {
    auto text = toUtf16(driverText);
    const auto result =
        SQLDriverConnectW(connection_, nullptr, reinterpret_cast<SQLWCHAR*>(text.data()),
                          static_cast<SQLSMALLINT>(text.size()), nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    connected_ = SQL_SUCCEEDED(result);
    if (connected_) return {};
    auto diagnoses = diagnosesOf(SQL_HANDLE_DBC, connection_);
    if (diagnoses.empty()) diagnoses.push_back(causeOf({}));
    return diagnoses;
}

}  // namespace desk::odbc
