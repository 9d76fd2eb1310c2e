#include "support/failing_engine.h"

#include "base/failure.h"

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
    void addNew() override { behind_->addNew(); }
    void set(int column, const Value& value) override { behind_->set(column, value); }
    void update() override {
        fault_.meet("(row)");
        behind_->update();
    }

  private:
    std::unique_ptr<Cursor> behind_;
    Fault& fault_;
};

}  // namespace

void Fault::meet(std::string_view statement) {
    statements.emplace_back(statement);
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
