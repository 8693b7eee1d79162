// The author window stores what fits its field and refuses by name what doesn't, in the order of
// the fields, so that nothing is ever cut; addresses and sites go to the desktop to be opened.

#include <gtest/gtest.h>

#include "archive_fixture.h"
#include "foundation/services/strings.h"
#include "intake/dialog_autore.h"
#include "test_program.h"

namespace vardolin {
namespace {

struct AuthorFixture : testing::TestProgram {
  Dialog_Autore form{program};
  AuthorFixture() {
    program.texts.EnglishTexts = testing::ReadEnglishForTests();
    program.prefs.AutoSave = false;
    program.catalogue.levels = {testing::SampleLevel(0), testing::SampleLevel(7)};
    form.Load();
    form.ImpostaValori(7);
  }
  const LevelRecord& Record() const { return program.catalogue.levels[1]; }
};

TEST(DialogAutore, FieldsAreStoredUpToTheirWidthAndRefusedBeyondIt) {
  auto n = [](int count, const std::string& text) {
    std::string out;
    while (count-- > 0) out += text;
    return out;
  };
  struct Case {
    const char* what;
    std::vector<std::string> emails, sites;
    std::string name;
    const char* refused;  // part of the message, empty when accepted
    bool emails_stored, sites_stored, name_stored;
  } cases[] = {
      {"255 joined, 79 of a name", {n(10, "a"), n(244, "b")}, {}, n(79, "n"), "", 1, 1, 1},
      {"79 characters of two bytes each", {}, {}, n(79, "\xC3\xA9"), "", 1, 1, 1},
      {"256 joined addresses", {n(10, "a"), n(245, "b")}, {}, "x", "e-mail addresses", 0, 0, 0},
      {"256 joined sites", {"a@b"}, {n(10, "s"), n(245, "s")}, "x", "web sites", 1, 0, 0},
      {"an 80 character name is cut as typed", {}, {}, n(79, "n") + "m", "", 1, 1, 1},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    AuthorFixture f;
    const LevelRecord before = f.Record();
    f.form.Combo_Email.Clear();
    for (const auto& row : c.emails) f.form.Combo_Email.AddItem(row);
    f.form.Combo_Sito.Clear();
    for (const auto& row : c.sites) f.form.Combo_Sito.AddItem(row);
    f.form.Text_NomeAutore.SetText(c.name);
    if (*c.refused) f.ui.Answer(msg::kOk, c.refused);
    f.form.Pul_Ok.Click();
    EXPECT_EQ(f.form.IsLoaded(), *c.refused != 0);
    f.form.Pul_Cancel.Click();
    EXPECT_FALSE(f.form.ExitValue);
    EXPECT_EQ(f.Record().AuthorEmails == before.AuthorEmails, !c.emails_stored);
    EXPECT_EQ(f.Record().AuthorSites == before.AuthorSites, !c.sites_stored);
    EXPECT_EQ(f.Record().AuthorName,
              c.name_stored ? c.name.substr(0, c.name.size() == 80 ? 79 : c.name.size())
                            : before.AuthorName);
    if (c.emails_stored) {
      AuthorFixture again;  // what was stored reads back as the same rows
      SplitAuthorList(f.Record().AuthorEmails, again.form.Combo_Email);
      EXPECT_EQ(JoinAuthorList(again.form.Combo_Email), f.Record().AuthorEmails);
      EXPECT_EQ(again.form.Combo_Email.ListCount(), static_cast<int>(c.emails.size()));
    }
  }
}

// A row given to a list is refused at once when it can't be an address or a site, or when the
// list would no longer fit its field.
TEST(DialogAutore, RowsAreRefusedAsTheyAreGiven) {
  const std::tuple<bool, std::string, const char*> cases[] = {
      // e-mail or site, what is typed, part of the warning (empty: the row is added)
      {true, "  lara@croft.example  ", ""},
      {true, "lara croft@x.org", "can't be an e-mail address"},
      {true, "a@b@c.org", "can't be an e-mail address"},
      {true, "lara@example.", "can't be an e-mail address"},
      {false, "https://croft.example/levels?a=1", ""},
      {false, "croft", "can't be a web site"},
      {true, std::string(240, 'a') + "@x.org", "e-mail addresses"},
  };
  for (const auto& [email, typed, refused] : cases) {
    AuthorFixture f;
    ComboBox& combo = email ? f.form.Combo_Email : f.form.Combo_Sito;
    const int rows = combo.ListCount();
    f.ui.Input(typed);
    if (*refused) f.ui.Answer(msg::kOk, refused);
    (email ? f.form.Pul_NewEmail : f.form.Pul_New_Sito).Click();
    EXPECT_EQ(combo.ListCount(), rows + (*refused ? 0 : 1)) << typed;
    if (!*refused) EXPECT_EQ(combo.SelectedText(), Trim(typed));
  }
}

TEST(DialogAutore, AddressesAndSitesAreOpenedOnTheDesktopOrTheLackIsSaid) {
  AuthorFixture f;
  f.form.Combo_Email.SetListIndex(1);
  f.form.Pul_SendMail.Click();
  f.form.Pul_GoSito.Click();
  f.platform.opener_answers = false;
  f.ui.Answer(msg::kOk, "No mail program opened a message to b@example.org");
  f.form.Pul_SendMail.Click();
  f.ui.Answer(msg::kOk, "No web browser opened https://example.org");
  f.form.Pul_GoSito.Click();
  f.form.Combo_Email.Clear();
  f.form.Pul_SendMail.Click();  // no address: nothing happens
  EXPECT_EQ(f.platform.calls,
            (std::vector<std::string>{"open mailto:b@example.org", "open https://example.org",
                                      "open mailto:b@example.org", "open https://example.org"}));
}

}  // namespace
}  // namespace vardolin
