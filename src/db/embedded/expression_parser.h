#pragma once

#include <functional>
#include <memory>

#include "db/embedded/ast.h"
#include "db/embedded/token_stream.h"

namespace desk::embedded {

/// Reads expressions. A query in braces is read by `query`, which the statement parser gives.
class ExpressionParser {
  public:
    using QueryReader = std::function<std::shared_ptr<Query>()>;

    ExpressionParser(TokenStream& tokens, QueryReader query) : tokens_(tokens), query_(std::move(query)) {}

    /// Values and conditions alike; which of them may stand where is the resolver's matter.
    Expression expression();

  private:
    Expression conjunction();
    Expression inversion();
    Expression comparison();
    Expression listOrQuery(Expression left, bool negated);
    Expression sum();
    Expression factor();
    Expression primary();
    Expression choice();
    Expression function();
    Expression day();

    TokenStream& tokens_;
    QueryReader query_;
    int depth_ = 0;
};

}  // namespace desk::embedded
