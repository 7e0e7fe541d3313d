#pragma once

#include <cstdint>
#include <string_view>

namespace kebu::controls {

/// Where a key does what its entry says.
enum class KeyPlace : std::uint8_t {
  Window,  ///< in every window, or in the field with the focus
  Grid,    ///< in a grid or list
  Summary,
};

/// What a key does.
struct KeyEntry {
  std::string_view keys;    ///< separated by commas; "…" stands for those between two others
  std::string_view action;  ///< in the same order
  KeyPlace place = KeyPlace::Window;
};

/// All keys that the windows act on. Ctrl+F1 shows them, and the user guide has the same lines. A
/// test presses each of them, and fails for a key that is acted on and is not named here.
inline constexpr KeyEntry keyTable[] = {
    {"F1", "apre la guida alla pagina mostrata"},
    {"Ctrl+F1", "elenca i tasti"},
    {"F3, F10, F9, F8", "Nuovo, Conferma, Annulla, Elimina"},
    {"Ctrl+F10", "mostra che cosa cambia con Conferma"},
    {"F5", "rilegge un'anteprima o il riepilogo"},
    {"F11", "apre il riepilogo"},
    {"Ctrl+Pag giù, Ctrl+Pag su", "pagina successiva, precedente"},
    {"Ctrl+1 … Ctrl+9, Ctrl+0", "dalla prima alla decima pagina"},
    {"Alt+lettera sottolineata", "va al campo o preme il pulsante"},
    {"Tab, Maiusc+Tab", "campo successivo, precedente"},
    {"Invio", "campo successivo; su un pulsante lo preme"},
    {"Ctrl+Invio", "va a capo in un campo di più righe"},
    {"F4", "apre l'elenco dei codici di un campo o di una cella"},
    {"F10, Invio", "in una finestra di dialogo premono il pulsante in evidenza"},
    {"Esc",
     "in un campo o una cella torna al valore di prima; in una finestra di dialogo la chiude"},
    {"Su, Giù, Pag su, Pag giù", "riga precedente, successiva, una videata più su, più giù",
     KeyPlace::Grid},
    {"Ctrl+Inizio, Ctrl+Fine", "prima, ultima riga", KeyPlace::Grid},
    {"Sinistra, Destra, Inizio, Fine", "colonna precedente, successiva, prima, ultima",
     KeyPlace::Grid},
    {"Maiusc+Su, Maiusc+Giù", "sceglie più righe insieme", KeyPlace::Grid},
    {"F2", "comincia a modificare una cella", KeyPlace::Grid},
    {"Spazio", "mette o toglie un segno", KeyPlace::Grid},
    {"Ctrl+A, Ctrl+Maiusc+A", "mette, toglie tutti i segni della colonna", KeyPlace::Grid},
    {"Canc", "svuota una cella", KeyPlace::Grid},
    {"Alt+Invio", "dice a parole che cosa rappresenta la regola di sconto scelta", KeyPlace::Grid},
    {"Ctrl+F, Ctrl+Maiusc+F",
     "cerca un testo in tutte le colonne, o in quella della cella; \"nessuna corrisponde\" se non "
     "c'è",
     KeyPlace::Grid},
    {"Invio, Maiusc+Invio", "nella casella della ricerca: riga successiva, precedente",
     KeyPlace::Grid},
    {"Ctrl+G, Ctrl+Maiusc+G", "riga successiva, precedente, che lo contiene", KeyPlace::Grid},
    {"Ctrl+Maiusc+O", "ordina per la colonna: crescente, decrescente, come letta", KeyPlace::Grid},
    {"Ctrl+Maiusc+L", "adatta la larghezza della colonna", KeyPlace::Grid},
    {"Ctrl+C, Ctrl+Maiusc+C, Ctrl+Maiusc+T",
     "copia la cella o le righe scelte, la riga con le intestazioni, tutte le righe",
     KeyPlace::Grid},
    {"Ctrl+Maiusc+E", "esporta le righe in un file CSV", KeyPlace::Grid},
    {"Esc", "interrompe la ricerca, l'ordinamento, la copia e l'esportazione", KeyPlace::Grid},
    {"Ctrl+C, Ctrl+S", "copia il foglio, lo salva in un file di testo", KeyPlace::Summary},
};

}  // namespace kebu::controls
