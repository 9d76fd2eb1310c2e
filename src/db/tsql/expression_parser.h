#pragma once

#include <functional>
#include <memory>

#include "db/tsql/ast.h"
#include "db/tsql/token_stream.h"

namespace desk::tsql {

/// Reads expressions. A query in braces is read by `query`, which the statement parser gives.
class ExpressionParser {
  public:
    using QueryReader = std::function<std::shared_ptr<Query>()>;

    ExpressionParser(TokenStream& tokens, QueryReader query) : tokens_(tokens), query_(std::move(query)) {}

    /// Values and conditions alike; which of them may stand where is the resolver's matter.
    Expression expression();

  private:
    /// A node over these parts. Fails with -2147217900 where the tree grows too deep.
    template <class... Parts>
    Expression made(Form form, Parts&&... parts);
    void add(Expression& whole, Expression part);
    void deepen(Expression& whole, int below);

    Expression conjunction();
    Expression chain(std::string_view word, Form form, Expression (ExpressionParser::*link)());
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
    int braces_ = 0;   ///< that are open
    int deepest_ = 0;  ///< the depth of the deepest tree of the query that is read
};

}  // namespace desk::tsql
