#include "workbench/player/model_workplace.h"

#include "plugin/clskb_anagkelmoria.h"

namespace kebu::workbench {

ModelWorkplace::ModelWorkplace(const Setup& setup)
    : platform_(setup.user, setup.trace ? *setup.trace : nowhere_, setup.clock),
      desktop_(setup.user),
      hands_(desktop_),
      database_(setup.database),
      session_(database_),
      host_(
          [this, create = setup.createPlugin]() -> Ref<host::Cinterface> {
            if (create) return create(runtime());
            return plugin::CLSKB_ANAGKELMORIA::create(runtime());
          },
          {setup.user, embeddedCompany(database_, setup.observer, setup.manners), setup.company,
           setup.translations, setup.journal}) {}

}  // namespace kebu::workbench
