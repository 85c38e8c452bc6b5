#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "platform/Automation.h"
#include "platform/Locale.h"

namespace blattwart {

/// A typed face on an ADO record set. Its column objects are fetched once and follow the current row, so that
/// each cell costs one call. Everything throws RuntimeError where ADO refuses it or a cell has another type.
class Recordset {
  public:
    Recordset(ObjectPtr object, const Locale& locale) : object_(std::move(object)), locale_(locale) {}

    bool atEnd();
    void MoveFirst();
    void MoveNext();
    void Update();

    /// Cells of the current row; column names are literals.
    std::int32_t number(std::wstring_view column);
    double real(std::wstring_view column);
    std::wstring text(std::wstring_view column);
    /// The cell's text, "" where there is none or it is none.
    std::wstring textOrNothing(std::wstring_view column);
    void put(std::wstring_view column, const std::wstring& text);

  private:
    AutomationObject& field(std::wstring_view column);
    Value value(std::wstring_view column);

    ObjectPtr object_;
    const Locale& locale_;
    ObjectPtr fields_;
    std::map<std::wstring_view, ObjectPtr> columns_;
};

}  // namespace blattwart
