#pragma once

#include <functional>

#include "db/tsql/ast.h"
#include "db/tsql/scope.h"

namespace desk::tsql {

/// Where an expression stands decides whether Max, Count and the like may stand in it.
enum class Aggregates { refused, allowed };

/// Resolves expressions; a query in braces is resolved by `query`, which the statement's resolver gives.
class ExpressionResolver {
  public:
    using QueryResolver = std::function<void(Query&, const Scope*)>;

    explicit ExpressionResolver(QueryResolver query) : query_(std::move(query)) {}

    /// Resolves an expression that must give a value.
    void value(Expression& expression, const Scope& scope, Aggregates aggregates = Aggregates::refused) const;
    /// Resolves an expression that must be a condition.
    void condition(Expression& expression, const Scope& scope,
                   Aggregates aggregates = Aggregates::refused) const;

  private:
    void any(Expression& expression, const Scope& scope, Aggregates aggregates) const;
    void calculation(Expression& sum) const;
    void list(Expression& test) const;
    void innerQuery(Expression& test, const Scope& scope) const;
    void choice(Expression& choice, const Scope& scope, Aggregates aggregates) const;
    void aggregate(Expression& call, const Scope& scope, Aggregates aggregates) const;

    QueryResolver query_;
};

/// Whether two resolved expressions say the same.
bool sameExpression(const Expression& a, const Expression& b);

/// Whether Max, Count or the like stands in a resolved expression.
bool hasAggregate(const Expression& expression);

}  // namespace desk::tsql
