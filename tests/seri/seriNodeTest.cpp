#include <gtest/gtest.h>

#include <param/errors.h>
#include <param/seri/errorStep.h>
#include <param/seri/seriDocument.h>
#include <param/seri/seriInfo.h>
#include <param/seri/seriObject.h>
#include <param/seri/seriOption.h>
#include <param/seri/variant.h>

#include "support/testSupport.h"

using namespace param;
using testing_support::parsed;
using testing_support::RecordingHandler;
using utils::ErrorResponseType;
using utils::JsonLoad;
using utils::JsonSave;

namespace {}  // namespace

TEST(SeriNodes, ChildrenTakeTheInfoOfTheirParent) {
  SeriDocument doc(JsonSave::instance, ".cfg");
  SeriObject child(JsonSave::instance);
  child.set("a", 1);
  ASSERT_EQ(doc.setSeriObject("child", std::move(child)), 0u);

  // A fetch stamps `out` first, even when the key is missing.
  SeriObject out(JsonLoad::instance);
  out.set("untouched", true);
  EXPECT_EQ(doc.getSeriObject("missing", out), utils::errc::keyMissing);
  EXPECT_EQ(out.info(), doc.info());
  EXPECT_TRUE(out.contains("untouched"));
  ASSERT_EQ(doc.getSeriObject("child", out), 0u);
  EXPECT_EQ(out.info()->extension, ".cfg");

  // setSeriObject stamps the child, SeriObject::setSeriArray leaves it alone,
  // and an array stamps what it adds.
  SeriObject node(JsonLoad::instance);
  ASSERT_EQ(doc.getSeriObject("child", node), 0u);
  SeriObject grandChild(JsonSave::instance);
  node.setSeriObject("g", std::move(grandChild));
  EXPECT_EQ(grandChild.info(), doc.info());  // NOLINT: the moved-from node keeps its info
  SeriArray list(JsonSave::instance);
  node.setSeriArray("list", std::move(list));
  EXPECT_EQ(list.info(), nullptr);  // NOLINT
  SeriArray fetched(JsonLoad::instance);
  ASSERT_EQ(node.getSeriArray("list", fetched), 0u);
  EXPECT_EQ(fetched.info(), doc.info());
  SeriObject element(JsonSave::instance);
  SeriArray inner(JsonSave::instance);
  fetched.addSeriObject(std::move(element));
  fetched.addSeriArray(std::move(inner));
  EXPECT_EQ(element.info(), doc.info());  // NOLINT
  EXPECT_EQ(inner.info(), doc.info());    // NOLINT

  // Clones keep the borrowed pointer; a cloned document gets its own info.
  EXPECT_EQ(node.clone().info(), doc.info());
  SeriDocument copy = doc.clone();
  EXPECT_NE(copy.info(), doc.info());
  EXPECT_EQ(copy.info()->extension, ".cfg");
  SeriDocument moved(std::move(copy));
  EXPECT_EQ(moved.info()->extension, ".cfg");
  SeriObject viaMoved(JsonLoad::instance);
  ASSERT_EQ(moved.getSeriObject("child", viaMoved), 0u);
  EXPECT_EQ(viaMoved.info(), moved.info());
}

TEST(SeriNodes, ErrorStepFollowsTheHandler) {
  {
    RecordingHandler handler(ErrorResponseType::Abort);
    EXPECT_EQ(errorStep(0), 0u);
    EXPECT_TRUE(handler.codes.empty());
    EXPECT_EQ(errorStep(0x1234), 0x1234u);
    EXPECT_EQ(strictErrorStep(0x1234), 0x1234u);
    EXPECT_EQ(handler.allowedSets, (std::vector<unsigned>{3, 3}));
  }
  {
    RecordingHandler handler(ErrorResponseType::Ignore);
    EXPECT_EQ(errorStep(0x1234), 0u);
    EXPECT_EQ(strictErrorStep(0x1234), 0u);
  }
  {
    // An answer that is neither: the ordinary step goes on, the strict one stops.
    RecordingHandler handler(static_cast<ErrorResponseType>(4));
    EXPECT_EQ(errorStep(0x1234), 0u);
    EXPECT_EQ(strictErrorStep(0x1234), 0x1234u);
  }
  // The default handler ignores.
  EXPECT_EQ(errorStep(0x1234), 0u);
}

TEST(SeriNodes, InfoSavesItsFourKeysInOrder) {
  SeriInfo info(".job");
  SeriObject o(JsonSave::instance);
  ASSERT_EQ(info.save(o), 0u);
  EXPECT_EQ(o.keys(), (std::vector<std::string>{"ver", "os", "arch", "extension"}));
  std::string ver, os;
  std::uint8_t arch = 0;
  o.get("ver", ver);
  o.get("os", os);
  o.get("arch", arch);
  EXPECT_EQ(ver, utils::Version::g_sdkBuildVersion.toString());
  EXPECT_EQ(os, SeriInfo::buildOs());
  EXPECT_EQ(arch, sizeof(void*) * 8);

  SeriInfo back;
  ASSERT_EQ(back.load(o), 0u);
  EXPECT_EQ(back.extension, ".job");
}

TEST(SeriNodes, InfoLoadTreatsVersionAndTheOtherKeysDifferently) {
  const SeriObject badVersion =
      parsed(R"({"ver":"xyz","os":"Windows","arch":32,"extension":".cfg"})");
  {
    RecordingHandler handler(ErrorResponseType::Ignore);
    SeriInfo info;
    info.ver = utils::Version(1, 2, 3, 4);
    EXPECT_EQ(info.load(badVersion), 0u);
    EXPECT_EQ(handler.codes, (std::vector<SdkError>{errc::badVersion}));
    EXPECT_EQ(info.ver, utils::Version(1, 2, 3, 4));
    EXPECT_EQ(info.os, "Windows");
    EXPECT_EQ(info.arch, 32);
  }
  {
    RecordingHandler handler(ErrorResponseType::Abort);
    SeriInfo info;
    EXPECT_EQ(info.load(badVersion), errc::badVersion);
    EXPECT_EQ(info.os, SeriInfo::buildOs());  // stopped before "os"
  }

  const SeriObject noOs = parsed(R"({"ver":"2.0.1.7","arch":64,"extension":".cfg"})");
  {
    RecordingHandler handler(ErrorResponseType::Ignore);
    SeriInfo info;
    EXPECT_EQ(info.load(noOs), 0u);
    EXPECT_EQ(info.ver, utils::Version(2, 0, 1, 7));
    EXPECT_EQ(info.extension, ".cfg");
  }
  for (auto answer : {ErrorResponseType::Abort, static_cast<ErrorResponseType>(4)}) {
    RecordingHandler handler(answer);
    SeriInfo info;
    EXPECT_EQ(info.load(noOs), utils::errc::keyMissing);
    EXPECT_TRUE(info.extension.empty());
  }

  // A missing "ver" goes on past anything but Abort.
  const SeriObject noVer = parsed(R"({"os":"Linux","arch":64,"extension":""})");
  RecordingHandler handler(static_cast<ErrorResponseType>(4));
  SeriInfo info;
  EXPECT_EQ(info.load(noVer), 0u);
  EXPECT_EQ(info.os, "Linux");
}

TEST(SeriNodes, VariantCarriesAnObjectThroughUnchanged) {
  Variant never;
  SeriObject parent(JsonSave::instance);
  ASSERT_EQ(never.save(parent), 0u);
  EXPECT_EQ(parent.stringfy(), R"({"variant":{}})");

  const SeriObject stored = parsed(R"({"variant":{"a":[1,2],"b":"x"}})");
  Variant v;
  ASSERT_EQ(v.load(stored), 0u);
  Variant copy = v;
  copy.set("b", "changed");
  EXPECT_EQ(v.stringfy(), R"({"a":[1,2],"b":"x"})");
  SeriObject out(JsonSave::instance);
  ASSERT_EQ(v.save(out), 0u);
  EXPECT_EQ(out.stringfy(), R"({"variant":{"a":[1,2],"b":"x"}})");

  const SeriObject empty = parsed("{}");
  {
    RecordingHandler handler(ErrorResponseType::Ignore);
    EXPECT_EQ(v.load(empty), 0u);
    EXPECT_EQ(v.stringfy(), R"({"a":[1,2],"b":"x"})");
  }
  RecordingHandler handler(ErrorResponseType::Abort);
  EXPECT_EQ(v.load(empty), utils::errc::keyMissing);
}

TEST(SeriNodes, OptionWordFields) {
  EXPECT_EQ(SeriOption().word, 0u);
  SeriOption o(SeriOption::Aes, 2, 1);
  EXPECT_EQ(o.word, 0x63u);
  EXPECT_EQ(o.detail.encoding, 3u);
  EXPECT_EQ(o.detail.aesAlgorithm, 2u);
  EXPECT_EQ(o.detail.keyIndex, 1u);
  SeriOption high(0xABCD000000000042ull);
  EXPECT_EQ(high.encoding(), 2u);
  EXPECT_EQ(high.keyIndex(), 1u);
  high.detail.encoding = 1;
  EXPECT_EQ(high.word, 0xABCD000000000041ull);
}
