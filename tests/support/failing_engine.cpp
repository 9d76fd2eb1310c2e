#include "support/failing_engine.h"

#include <map>

#include "base/failure.h"
#include "base/text.h"

namespace desk {

namespace {

/// A recordset's writes are statements, too.
class FailingCursor : public Cursor {
  public:
    FailingCursor(std::unique_ptr<Cursor> behind, Fault& fault) : behind_(std::move(behind)), fault_(fault) {
        columnNames_ = behind_->columnNames();
    }

    bool atEnd() const override { return behind_->atEnd(); }
    void moveNext() override { behind_->moveNext(); }
    Value value(int column) const override { return behind_->value(column); }
    bool isNull(int column) const override { return behind_->isNull(column); }
    std::string text(int column) const override { return behind_->text(column); }
    std::string_view view(int column) const override { return behind_->view(column); }
    void addNew() override {
        behind_->addNew();
        adding_ = true;
        assigned_.clear();
    }
    void set(int column, const Value& value) override {
        behind_->set(column, value);
        assigned_[column] = value.isNull() ? "Null" : "'" + value.text() + "'";
    }
    void update() override {
        std::vector<std::string> fields;
        for (const auto& [column, shown] : assigned_)
            fields.push_back(columnNames_[static_cast<std::size_t>(column)] + "=" + shown);
        fault_.meet((adding_ ? "adds " : "changes ") + join(fields, ", "));
        behind_->update();
        adding_ = false;
        assigned_.clear();
    }

  private:
    std::unique_ptr<Cursor> behind_;
    Fault& fault_;
    bool adding_ = false;
    std::map<int, std::string> assigned_;
};

}  // namespace

void Fault::meet(std::string_view statement) {
    statements.emplace_back(statement);
    seen(statement);
    if (in > 0 && --in == 0) throw RuntimeFailure(number, text);
}

std::unique_ptr<Cursor> FailingEngine::open(std::string_view statement, Rows mode) {
    fault_.meet(statement);
    return std::make_unique<FailingCursor>(behind_->open(statement, mode), fault_);
}

long FailingEngine::execute(std::string_view statement) {
    fault_.meet(statement);
    return behind_->execute(statement);
}

void FailingEngine::begin() {
    fault_.meet("(begin)");
    behind_->begin();
}

void FailingEngine::commit() {
    fault_.meet("(commit)");
    behind_->commit();
}

void FailingEngine::rollback() {
    // A way back is never what fails: the server undoes what a broken connection leaves.
    behind_->rollback();
}

}  // namespace desk
