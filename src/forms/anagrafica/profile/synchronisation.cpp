#include "forms/anagrafica/profile/synchronisation.h"

#include "sql/synchronisation.h"

namespace kebu::forms {

namespace {

constexpr std::int32_t jobMenuEntry = 2838;
constexpr std::int32_t installationFolder = 6;

}  // namespace

void Synchronisation::InsertGM02Records() {
  trap(context_.services, "InsertGM02Records", [&](Steps& step) {
    step([&] {
      context_.connection->Execute(sql::ImpostazioneInizialeAttivita(context_.companyKey()));
    });
  });
}

void Synchronisation::InsertGM08NuoviModelliSincro() {
  trap(context_.services, "InsertGM08NuoviModelliSincro", [&](Steps& step) {
    step([&] { context_.connection->Execute(sql::TipoSincroStandard()); });
    step([&] {
      context_.connection->Execute(
          sql::AttivitaDispositivo(context_.profileKey(), context_.companyKey()));
    });
  });
}

std::string Synchronisation::GetPercorsoInstallazione() {
  return trap(context_.services, "GetPercorsoInstallazione", [&](Steps& step) {
    return step([&] { return environment_->GetPath(installationFolder, ""); });
  });
}

bool Synchronisation::SchedulaAttJob() {
  return trap(context_.services, "SchedulaAttJob", [&](Steps& step) {
    const Ref<ado::Command> command = step([&] { return context_.newCommand(); });
    step([&] { command->setActiveConnection(context_.connection); });
    step([&] { command->setCommandText("SPFW_NEWATTJOB"); });
    const auto set = [&](const char* name, const Value& value) {
      step([&] { command->setParameter(name, value); });
    };
    set("@vocemenu", jobMenuEntry);
    set("@DescrJob", context_.translate("Tarvo - Importa ordini"));
    set("@DescrAtt", context_.translate("Importa ordini"));
    set("@PathInst", GetPercorsoInstallazione());
    set("@parametro", "IMPDOC");
    set("@Ditta", context_.company);
    // An existing job of the same kind is used again.
    set("@AlwaysNewAtt", std::int32_t{0});
    step([&] { command->Execute(); });
    step([&] { command->setActiveConnection(nullptr); });
    return true;
  });
}

}  // namespace kebu::forms
