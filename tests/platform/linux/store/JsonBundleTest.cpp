#include "platform/linux/store/JsonBundle.h"

#include "platform/linux/files/TemporaryFolder.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <unistd.h>

#include <climits>
#include <string>

namespace velmora {
namespace {

using nlohmann::json;

TEST(JsonBundle, TextsOfTheDictionaryAreFound) {
    const TemporaryFolder folder;
    const JsonBundle bundle(
        folder.write("bundle.json", R"({"CFBundleIdentifier": "com.example.Test", "Other": "x"})"),
        "/usr/bin/velmora");
    EXPECT_EQ(bundle.identifier(), "com.example.Test");
    EXPECT_EQ(bundle.information("Other"), "x");
    EXPECT_EQ(bundle.executablePath(), "/usr/bin/velmora");
}

TEST(JsonBundle, MissingEmptyAndOtherValuesAreAbsent) {
    const TemporaryFolder folder;
    const JsonBundle bundle(
        folder.write("bundle.json", R"({"empty": "", "number": 1, "object": {"a": "b"}})"), std::nullopt);
    for (const char* key : {"empty", "number", "object", "missing"}) {
        EXPECT_EQ(bundle.information(key), std::nullopt) << key;
    }
    EXPECT_EQ(bundle.identifier(), std::nullopt);
    EXPECT_EQ(bundle.executablePath(), std::nullopt);
}

TEST(JsonBundle, MissingOrBrokenFileIsAnEmptyDictionary) {
    const TemporaryFolder folder;
    EXPECT_EQ(JsonBundle(folder.path() / "none.json", std::nullopt).identifier(), std::nullopt);
    for (const char* contents : {"", "{", "[]", "7", "\"text\"", "{\"CFBundleIdentifier\": \"a\"} more"}) {
        EXPECT_EQ(JsonBundle(folder.write("bundle.json", contents), std::nullopt).identifier(), std::nullopt)
            << contents;
    }
    EXPECT_EQ(JsonBundle(folder.path(), std::nullopt).identifier(), std::nullopt);
}

TEST(BundleDictionary, BuildTreesFileStandsBesideTheExecutable) {
    const TemporaryFolder folder;
    const auto beside = folder.write("build/bundle.json", "{}");
    folder.write("share/velmora/bundle.json", "{}");
    EXPECT_EQ(bundleDictionaryOf(folder.path() / "build" / "velmora"), beside);
}

TEST(BundleDictionary, InstalledFileIsAmongTheSharedOnes) {
    EXPECT_EQ(bundleDictionaryOf("/opt/velmora/bin/velmora"), "/opt/velmora/share/velmora/bundle.json");
}

TEST(RunningExecutable, IsThisProgram) {
    char path[PATH_MAX] = {};
    ASSERT_GT(::readlink("/proc/self/exe", path, sizeof path - 1), 0);
    EXPECT_EQ(runningExecutable(), path);
}

json dictionary(const char* name) {
    return json::parse(
        TemporaryFolder::contentsOf(std::filesystem::path(VELMORA_SOURCE_DIR) / "deployment" / name));
}

TEST(Deployment, DevelopmentHasNoIdentifierAndNoFeed) {
    const json development = dictionary("development.json");
    EXPECT_FALSE(development.contains("CFBundleIdentifier"));
    EXPECT_FALSE(development.contains("SUFeedURL"));
    EXPECT_EQ(development["VMCallbackScheme"], "velmora");
}

TEST(Deployment, EveryAddressOfDevelopmentIsOnThisMachine) {
    const json development = dictionary("development.json");
    for (const auto& [key, value] : development.items()) {
        if (key.ends_with("URL")) {
            EXPECT_TRUE(value.get<std::string>().starts_with("http://127.0.0.1:")) << key;
        }
    }
    EXPECT_EQ(development["VMLatencyProbeAddress"], "127.0.0.1");
}

TEST(Deployment, ReleaseHasWhatPackagesNeed) {
    const json release = dictionary("release.json");
    EXPECT_EQ(release["CFBundleIdentifier"], "com.torvane.Velmora");
    EXPECT_EQ(release["VMCallbackScheme"], "velmora");
    for (const char* key : {"CFBundleShortVersionString", "CFBundleVersion", "VMLatencyProbeAddress"}) {
        EXPECT_FALSE(release[key].get<std::string>().empty()) << key;
    }
    for (const char* key : {"VMCloudBaseURL", "VMProductURL"}) {
        EXPECT_TRUE(release[key].get<std::string>().starts_with("https://")) << key;
    }
    // The service's address has no path: requests append their own.
    EXPECT_EQ(release["VMCloudBaseURL"].get<std::string>().find('/', 8), std::string::npos);
}

TEST(Deployment, BuildTreeCarriesTheDevelopmentDictionary) {
    EXPECT_EQ(
        json::parse(TemporaryFolder::contentsOf(std::filesystem::path(VELMORA_BINARY_DIR) / "bundle.json")),
        dictionary("development.json"));
}

}  // namespace
}  // namespace velmora
