// The Levels menu's entries that add a level and show a level's properties.

#include "intake/add_level.h"
#include "web/url_list_offers.h"
#include "window/principale.h"
#include "window/principale_levels.h"

namespace vardolin {

void Principale::WireAddLevel() {
  mnu_AddLevel.SetHandler([this] {
    OfferUrlListUpdate(program());
    if (const auto code = AddLevel(program(), {})) {
      RefreshLevelList(*this);
      SelectLevelByCode(*this, *code);
    }
  });
  mnu_Property.SetHandler([this] {
    const int index = ChosenLevelIndex();
    if (index < 0) return;
    EditLevelProperties(program(), index);
    RefreshLevelList(*this);
  });
}

}  // namespace vardolin
