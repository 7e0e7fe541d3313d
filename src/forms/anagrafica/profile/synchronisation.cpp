#include "forms/anagrafica/profile/synchronisation.h"

#include "forms/procedure.h"
#include "sql/synchronisation.h"

namespace kebu::forms {

namespace {

constexpr std::int32_t jobMenuEntry = 2838;
constexpr std::int32_t installationFolder = 6;

}  // namespace

void Synchronisation::InsertGM02Records() {
  procedure(context_, "InsertGM02Records",
            [&](Procedure& p) { p.run(sql::ImpostazioneInizialeAttivita(p.company())); });
}

void Synchronisation::InsertGM08NuoviModelliSincro() {
  procedure(context_, "InsertGM08NuoviModelliSincro", [&](Procedure& p) {
    p.run(sql::TipoSincroStandard());
    p.run(sql::AttivitaDispositivo(p.profile(), p.company()));
  });
}

std::string Synchronisation::GetPercorsoInstallazione() {
  return procedure(context_, "GetPercorsoInstallazione", [&](Procedure& p) {
    return p.step(
        [&] { return context_.hostServices.environment->GetPath(installationFolder, ""); });
  });
}

bool Synchronisation::SchedulaAttJob() {
  lastRequest_ = {.at = context_.now(), .isTaken = false};
  lastRequest_->isTaken = procedure(context_, "SchedulaAttJob", [&](Procedure& p) {
    const Ref<ado::Command> command = p.step([&] { return context_.newCommand(); });
    p.step([&] { command->setActiveConnection(context_.connection); });
    p.step([&] { command->setCommandText("SPFW_NEWATTJOB"); });
    const auto set = [&](const char* name, const Value& value) {
      p.step([&] { command->setParameter(name, value); });
    };
    set("@vocemenu", jobMenuEntry);
    set("@DescrJob", context_.translate("Tarvo - Importa ordini"));
    set("@DescrAtt", context_.translate("Importa ordini"));
    set("@PathInst", GetPercorsoInstallazione());
    set("@parametro", "IMPDOC");
    set("@Ditta", context_.company);
    // An existing job of the same kind is used again.
    set("@AlwaysNewAtt", std::int32_t{0});
    const bool isRequested = p.step([&] {
      command->Execute();
      return true;
    });
    p.step([&] { command->setActiveConnection(nullptr); });
    return isRequested;
  });
  return lastRequest_->isTaken;
}

}  // namespace kebu::forms
