// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/language.h"

#include "tests/host/review/app/main_window/workbench_fixture.h"

#include <QActionGroup>

namespace {

using namespace orvanta;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(LanguageName, IsWhatTheLanguageCallsItself) {
    const struct {
        const char *language, *name;
    } table[] = {{"en", "English"}, {"de", "Deutsch"}, {"fr", "Français"}, {"nonsense", "nonsense"}};
    for (const auto& row : table) {
        EXPECT_EQ(review::LanguageName(row.language).toStdString(), row.name);
    }
}

class LanguageMenu : public test::WorkbenchFixture {
protected:
    LanguageMenu() { Start(); }

    QList<QAction*> Languages() {
        Opens("toolsLanguage");
        return Menu("toolsLanguage").actions();
    }
    /// "English (chosen)"
    QStringList Captions() {
        QStringList captions;
        for (const QAction* language : Languages()) {
            captions << language->text().remove('&') + (language->isChecked() ? " (chosen)" : "");
        }
        return captions;
    }
};

TEST_F(LanguageMenu, OffersTheSystemAndAllLanguagesThatThereAreTextsIn) {
    EXPECT_EQ(Captions(), QStringList({"As the System (chosen)", "Deutsch", "English"}));
}

TEST_F(LanguageMenu, KeepsTheChoiceAndSaysFromWhenOnItCounts) {
    user.AnswersMessage(owl::kIdOk);
    Languages()[1]->trigger();
    EXPECT_EQ(Captions(), QStringList({"As the System", "Deutsch (chosen)", "English"}));
    EXPECT_THAT(user.Messages().front().text, HasSubstr("from the next start"));
    Leave();
    EXPECT_EQ(review::StoredLanguage(folder.Path("settings.ini")), "de");
}

TEST_F(LanguageMenu, SaysNothingWhenTheChoiceStays) {
    Languages()[0]->trigger();
    EXPECT_EQ(review::StoredLanguage(folder.Path("settings.ini")), "");
}

} // namespace
