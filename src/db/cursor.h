#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "db/value.h"

namespace desk {

/// How a recordset is opened.
enum class Rows {
    forwardOnly,  ///< streamed, each row seen once, none kept
    updatable,    ///< of one table; rows can be changed and added
};

/// The rows of one statement, as an engine gives them to Recordset, which tells the meaning of each
/// operation.
class Cursor {
  public:
    virtual ~Cursor() = default;

    const std::vector<std::string>& columnNames() const { return columnNames_; }

    virtual bool atEnd() const = 0;
    virtual void moveNext() = 0;

    virtual Value value(int column) const = 0;
    virtual bool isNull(int column) const = 0;
    virtual std::string text(int column) const = 0;
    virtual std::string_view view(int column) const = 0;

    virtual void addNew() = 0;
    virtual void set(int column, const Value& value) = 0;
    virtual void update() = 0;

  protected:
    std::vector<std::string> columnNames_;
};

}  // namespace desk
