#pragma once

#include <memory>

#include "demo/ado/Ado.h"
#include "demo/ado/AdoObject.h"
#include "demo/ado/Connection.h"

namespace demo::ado {

/// "ADOX.Catalog": Create, and ActiveConnection for reading, which is the open connection to what was made.
class Catalog final : public AdoObject {
  public:
    explicit Catalog(const AdoFaults& faults) : faults_(faults) {}

    blattwart::Value invoke(std::int32_t id, Access access, Arguments arguments) override;

  protected:
    std::span<const MemberName> members() const override;

  private:
    AdoFaults faults_;
    std::shared_ptr<Connection> connection_;
};

}  // namespace demo::ado
