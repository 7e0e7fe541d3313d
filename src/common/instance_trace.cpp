#include "common/instance_trace.h"

namespace kebu {

const std::string& InstanceTrace::InstanceGuid() {
  if (guid_.empty()) guid_ = NewGuidString();
  return guid_;
}

std::string InstanceTrace::NewGuidString() {
  const auto guid = platform_.createGuid();
  return guid ? guidText(*guid) : "";
}

void InstanceTrace::write(const std::string& event) {
  platform_.outputDebugString("KVRA:|" + InstanceGuid() + "|" + event + "|KEBU_ANAGRAFICA|" +
                              className_);
}

}  // namespace kebu
