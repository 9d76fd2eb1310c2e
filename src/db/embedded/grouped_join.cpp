#include "db/embedded/grouped_join.h"

#include <algorithm>

#include "db/tsql/expression_resolver.h"

namespace desk::embedded {

using namespace tsql;

namespace {

template <class Visit>
void visitQueries(Expression& expression, const Visit& visit) {
    if (expression.query) visit(*expression.query);
    for (auto& part : expression.parts) visitQueries(part, visit);
}

/// Calls `visit` with every expression that stands in the query itself, sources included.
template <class AnyQuery, class Visit>
void visitExpressions(AnyQuery& query, const Visit& visit) {
    for (auto& output : query.outputs) visit(*output.value);
    for (auto& source : query.sources)
        if (source.on) visit(*source.on);
    if (query.where) visit(*query.where);
    for (auto& item : query.groupBy) visit(item);
    if (query.having) visit(*query.having);
    for (auto& item : query.orderBy) visit(item.value);
}

/// Whether a column of the source `name` is read, queries inside the expression included.
bool reads(const Expression& expression, std::string_view name) {
    if (expression.form == Form::column && schema::sameName(expression.qualifier, name)) return true;
    bool found = false;
    if (expression.query)
        visitExpressions(*expression.query,
                         [&](const Expression& inner) { found = found || reads(inner, name); });
    return found || std::any_of(expression.parts.begin(), expression.parts.end(),
                                [&](const Expression& part) { return reads(part, name); });
}

void takeConjuncts(Expression condition, std::vector<Expression>& all) {
    if (condition.form != Form::both) return all.push_back(std::move(condition));
    for (auto& part : condition.parts) takeConjuncts(std::move(part), all);
}

Expression allOf(std::vector<Expression> conjuncts) {
    if (conjuncts.size() == 1) return std::move(conjuncts.front());
    Expression all{.form = Form::both, .parts = std::move(conjuncts)};
    all.type = Type::condition;
    return all;
}

Expression equality(Expression left, Expression right) {
    Expression test{.form = Form::compare, .text = "="};
    test.type = Type::condition;
    test.parts.push_back(std::move(left));
    test.parts.push_back(std::move(right));
    return test;
}

/// One grouped table of a query, and what is done with it there.
class GroupedJoin {
  public:
    GroupedJoin(Query& query, std::size_t at)
        : query_(query), at_(at), name_(query.sources[at].name()), grouped_(*query.sources[at].query) {}

    /// Replaces the table by look-ups if that gives the same rows; whether it did.
    bool replace() {
        if (!isPlainlyGrouped() || !isInnerJoin() || isReadElsewhere()) return false;
        anchors_.resize(grouped_.groupBy.size());
        for (const auto& source : query_.sources)
            if (source.on) takeConjuncts(*source.on, conjuncts_);
        if (query_.where) takeConjuncts(*query_.where, conjuncts_);
        for (auto& conjunct : conjuncts_)
            if (reads(conjunct, name_) && !understand(conjunct)) return false;
        const bool allAnchored = std::all_of(anchors_.begin(), anchors_.end(),
                                             [](const auto& anchor) { return anchor.has_value(); });
        if (!allAnchored || !lookedInto_) return false;
        rewrite();
        return true;
    }

  private:
    bool isPlainlyGrouped() const {
        const bool plain =
            !grouped_.distinct && !grouped_.top && !grouped_.having && !grouped_.groupBy.empty();
        return plain && std::all_of(grouped_.groupBy.begin(), grouped_.groupBy.end(),
                                    [](const Expression& item) { return item.form == Form::column; });
    }

    bool isInnerJoin() const {
        return std::none_of(query_.sources.begin(), query_.sources.end(), [](const Source& source) {
            return source.join == Join::left || source.join == Join::right || source.join == Join::full;
        });
    }

    bool isReadElsewhere() const {
        const auto inOutput = [&](const Output& output) { return reads(*output.value, name_); };
        const auto inOrder = [&](const Order& order) { return reads(order.value, name_); };
        const auto here = [&](const Expression& expression) { return reads(expression, name_); };
        return std::any_of(query_.outputs.begin(), query_.outputs.end(), inOutput) ||
               std::any_of(query_.orderBy.begin(), query_.orderBy.end(), inOrder) ||
               std::any_of(query_.groupBy.begin(), query_.groupBy.end(), here) ||
               (query_.having && here(*query_.having));
    }

    /// What the grouped table gives under that name; null for any other expression.
    const Expression* given(const Expression& column) const {
        if (column.form != Form::column || column.conversion != Conversion::none) return nullptr;
        if (!schema::sameName(column.qualifier, name_)) return nullptr;
        for (const auto& output : grouped_.outputs)
            if (schema::sameName(output.name, column.text)) return &*output.value;
        return nullptr;
    }

    /// The position of the key that the grouped table gives under that name; the number of keys if it is
    /// none.
    std::size_t keyOf(const Expression* given) const {
        if (given == nullptr) return anchors_.size();
        const auto& keys = grouped_.groupBy;
        const auto key = std::find_if(keys.begin(), keys.end(),
                                      [&](const Expression& item) { return sameExpression(item, *given); });
        return static_cast<std::size_t>(key - keys.begin());
    }

    /// An aggregate that is NULL where there is no row, so that a comparison with it does not hold.
    static bool isLookUp(const Expression* given) {
        return given != nullptr && given->form == Form::aggregate && given->text != "COUNT";
    }

    /// Whether the condition compares the grouped table in one of the two ways that look-ups can follow.
    bool understand(const Expression& condition) {
        if (condition.form != Form::compare) return false;
        for (const std::size_t side : {0U, 1U}) {
            const auto* found = given(condition.parts[side]);
            const auto& other = condition.parts[1 - side];
            if (found == nullptr || reads(other, name_)) continue;
            if (isLookUp(found)) return lookedInto_ = true;
            const auto key = keyOf(found);
            if (key == anchors_.size() || condition.text != "=" || other.type != condition.parts[side].type)
                return false;
            if (!anchors_[key] && canAnchor(other)) anchors_[key] = other;
            return true;
        }
        return false;
    }

    /// Inside the look-up a column of a table that is read there too would mean the inner one.
    bool canAnchor(const Expression& value) const {
        return value.form == Form::column && value.conversion == Conversion::none &&
               std::none_of(grouped_.sources.begin(), grouped_.sources.end(), [&](const Source& inner) {
                   return schema::sameName(inner.name(), value.qualifier);
               });
    }

    void rewrite() {
        for (auto& conjunct : conjuncts_) {
            if (!reads(conjunct, name_)) continue;
            for (auto& part : conjunct.parts) {
                const auto* found = given(part);
                if (isLookUp(found))
                    part = lookUp(*found);
                else if (found != nullptr)
                    part = *anchors_[keyOf(found)];
            }
        }
        // The equality by which a key was anchored has become one of the anchor with itself. It still tells
        // that the anchor is not NULL.
        query_.sources.erase(query_.sources.begin() + static_cast<std::ptrdiff_t>(at_));
        for (auto& source : query_.sources) {
            source.join = &source == &query_.sources.front() ? Join::first : Join::comma;
            source.on.reset();
        }
        query_.where = allOf(std::move(conjuncts_));
    }

    Expression lookUp(const Expression& aggregate) const {
        auto single = std::make_shared<Query>(grouped_);
        single->groupBy.clear();
        single->outputs = {{.value = aggregate}};
        std::vector<Expression> conditions;
        if (grouped_.where) conditions.push_back(*grouped_.where);
        for (std::size_t i = 0; i < anchors_.size(); ++i)
            conditions.push_back(equality(grouped_.groupBy[i], *anchors_[i]));
        single->where = allOf(std::move(conditions));
        Expression value{.form = Form::single, .query = std::move(single)};
        value.type = aggregate.type;
        return value;
    }

    Query& query_;
    std::size_t at_;
    std::string name_;
    Query grouped_;  ///< a copy: the query loses its own
    std::vector<Expression> conjuncts_;
    std::vector<std::optional<Expression>> anchors_;  ///< for each key, a column outside that equals it
    bool lookedInto_ = false;
};

}  // namespace

void lookUpGroups(Query& query) {
    for (auto& source : query.sources)
        if (source.query) lookUpGroups(*source.query);
    visitExpressions(query, [](Expression& expression) { visitQueries(expression, lookUpGroups); });
    std::size_t at = 0;
    while (query.sources.size() > 1 && at < query.sources.size()) {
        const bool replaced = query.sources[at].query && GroupedJoin(query, at).replace();
        if (!replaced) ++at;
    }
}

}  // namespace desk::embedded
