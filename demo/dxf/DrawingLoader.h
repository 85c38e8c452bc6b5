#pragma once

#include "demo/dxf/Drawing.h"

namespace demo {

/// Builds a drawing from a file's sections.
class DrawingLoader {
  public:
    explicit DrawingLoader(Drawing& drawing) : drawing_(drawing) {}

    void run(std::istream& stream);

  private:
    Objects take(std::string_view section);
    void readTables(Objects records);
    void readBlocks(Objects records);
    void enter(const Objects& objects);
    void enterOne(Object& object);
    void enterAll();
    void placeEntities(Objects entities);
    Block& blockFor(const Object& entity);
    void makeLayouts();
    void makeLayout(Object& object);
    void chooseNextHandle();

    Drawing& drawing_;
};

}  // namespace demo
