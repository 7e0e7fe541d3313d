#pragma once

#include <string_view>

namespace kebu::controls {

/// What a key does in every window. The user guide has the same texts.
struct KeyEntry {
  std::string_view keys;
  std::string_view action;
};

inline constexpr KeyEntry keyTable[] = {
    {"F3, F10, F9, F8", "Nuovo, Conferma, Annulla, Elimina"},
    {"F5", "rilegge un'anteprima"},
    {"Ctrl+Pag giù, Ctrl+Pag su", "pagina successiva, precedente"},
    {"Ctrl+1 … Ctrl+9, Ctrl+0", "dalla prima alla decima pagina"},
    {"Alt+lettera sottolineata", "va al campo o preme il pulsante"},
    {"Tab, Maiusc+Tab", "campo successivo, precedente"},
    {"Invio", "campo successivo; su un pulsante lo preme"},
    {"F4", "apre l'elenco dei codici di un campo o di una cella"},
    {"F2", "comincia a modificare una cella"},
    {"Spazio", "mette o toglie un segno"},
    {"Canc", "svuota una cella"},
    {"Esc",
     "in un campo o una cella torna al valore di prima; in una finestra di dialogo la chiude"},
};

}  // namespace kebu::controls
