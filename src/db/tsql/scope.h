#pragma once

#include <string_view>
#include <vector>

#include "db/tsql/ast.h"

namespace desk::tsql {

/// The sources whose columns an expression may name, and those of the queries around it.
class Scope {
  public:
    explicit Scope(const Scope* outer = nullptr) : outer_(outer) {}

    /// Adds a source. Fails with -2147217900 when another is known by the same name.
    void add(const Source& source);
    /// Forgets all but the last source: what follows a comma does not see what stands before it.
    void keepLast() { visibleFrom_ = sources_.size() - 1; }
    /// Everything is seen again.
    void showAll() { visibleFrom_ = 0; }

    /// Gives the column its full name, its type and its place in the catalogue.
    /// Fails with -2147217900 when there is no such column, or more than one.
    void resolve(Expression& column) const;

    /// The source of that name in this scope alone; fails with -2147217900.
    const Source& named(std::string_view name) const;
    const std::vector<const Source*>& sources() const { return sources_; }

  private:
    bool resolveHere(Expression& column) const;

    std::vector<const Source*> sources_;
    std::size_t visibleFrom_ = 0;
    const Scope* outer_;
};

}  // namespace desk::tsql
