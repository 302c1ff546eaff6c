#include "runtime/base/QVThreadContext.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

TEST(QVThreadContextTest, TheLanguageOfTheLogIsEnglish) {
    static_assert(noexcept(QVThreadContext::mf_setLoggingLanguage()));
    QVThreadContext::mf_setLoggingLanguage();
    EXPECT_EQ(QVThreadContext::mf_getLanguage(), QVThreadContext::Language::english);
}

TEST(QVThreadContextTest, AThreadThatSetNothingHasALanguageToo) {
    auto language = static_cast<QVThreadContext::Language>(-1);
    std::thread([&language] { language = QVThreadContext::mf_getLanguage(); }).join();
    EXPECT_EQ(language, QVThreadContext::Language::english);
}

}  // namespace
