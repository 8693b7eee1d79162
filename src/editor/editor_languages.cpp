#include "editor/editor_languages.h"

namespace vardolin {

const std::vector<EditorLanguage>& EditorLanguages() {
  static const std::vector<EditorLanguage> rows = {
      {"load_eng.jpg", "english.dat", "manual_eng.pdf", "Tomb Raider Level Editor", "Documentation",
       "Tools", "Web Links", "Run Tomb Raider", "Setup Tomb Raider", "Manual", "Room Editor",
       "Level Convertor"},
      {"load_eng.jpg", "italian.dat", "manual_ita.pdf", "Editor dei livelli di Tomb Raider",
       "Documentazione", "Strumenti", "Collegamenti Web", "Avvia Tomb Raider",
       "Configurazione di Tomb Raider", "Manuale", "Editor delle stanze",
       "Convertitore dei livelli"},
      {"load_fr.jpg", "french.dat", "manual_fr.pdf", "Editeur de niveaux de Tomb Raider",
       "Documentation", "Outils", "Sites Web", "Lancer Tomb Raider", "Configurer Tomb Raider",
       "Manuel", "Editeur de pièces", "Convertisseur de Niveaux"},
      {"load_eng.jpg", "german.dat", "manual_ger.pdf", "Kevili", "Dokummentation", "Tools",
       "Weblinks", "Tomb Raider starten", "Setup Tomb Raider", "Handbuch", "Zimmer-Editor",
       "Level-Konverter"},
      {"load_eng.jpg", "spanish.dat", "manual_esp.pdf", "Editor de Niveles de Tomb Raider",
       "Documentación", "Herramientas", "Vinculos de Web", "Ejecutar Tomb Raider",
       "Configuración de Tomb Raider", "Manual", "Editor de habitación", "Conversor de niveles"},
      {"load_eng.jpg", "english.dat", "manual_rus.pdf", "Tomb Raider Level Editor", "Documentation",
       "Tools", "Web Links", "Run Tomb Raider", "Setup Tomb Raider", "Manual", "Room Editor",
       "Level Convertor"},
  };
  return rows;
}

const EditorLanguage& EditorLanguageRow(int index) {
  const auto& rows = EditorLanguages();
  return index >= 0 && index < static_cast<int>(rows.size()) ? rows[index] : rows[0];
}

}  // namespace vardolin
