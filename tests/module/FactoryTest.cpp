// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/InterfaceIds.h"
#include "tests/ModuleFixture.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <stdexcept>

namespace wybeta {
namespace {

using namespace Steinberg;
using tests::IdBytes;

constexpr IdBytes kClassId{0x1D, 0xAA, 0x9F, 0x84, 0x92, 0x75, 0xDC, 0x4E,
                           0x8C, 0x14, 0xDE, 0xB3, 0xBE, 0x04, 0x69, 0x74};

FIDString asked(const IdBytes& id) {
    return reinterpret_cast<FIDString>(id.data());
}

// A record for the factory to fill, without a single zero in it beforehand.
template <class Record>
Record recordToFill() {
    Record record;
    std::memset(static_cast<void*>(&record), '?', sizeof(record));
    return record;
}

// All of a field, behind the text as well.
template <class Character, std::size_t width>
std::basic_string<Character> field(const Character (&characters)[width]) {
    return {characters, width};
}

template <class Character>
std::basic_string<Character> filled(const Character* text, std::size_t width) {
    std::basic_string<Character> whole(text);
    whole.resize(width);
    return whole;
}

class Factory : public tests::ModuleFixture {
protected:
    // Throws when the factory makes nothing.
    IPtr<IPluginBase> create(const IdBytes& interfaceId) {
        void* object = nullptr;
        if (factory->createInstance(asked(kClassId), asked(interfaceId), &object) != kResultOk) {
            throw std::runtime_error("expected the factory to make an extension, it did not");
        }
        return owned(static_cast<IPluginBase*>(object));
    }

    void expectNothing(const IdBytes& classId, const IdBytes& interfaceId) {
        void* object = this;
        EXPECT_EQ(factory->createInstance(asked(classId), asked(interfaceId), &object),
                  kNoInterface);
        EXPECT_EQ(object, nullptr);
    }
};

using FactoryInfo = Factory;

TEST_F(FactoryInfo, TellsWhoMadeTheModule) {
    auto info = recordToFill<PFactoryInfo>();
    EXPECT_EQ(factory->getFactoryInfo(&info), kResultOk);
    EXPECT_EQ(field(info.vendor), filled("WY Beta", 64));
    EXPECT_EQ(field(info.url), filled("https://example.org/wy-beta-lyric-division", 256));
    EXPECT_EQ(std::strlen(info.url), 42u);
    EXPECT_EQ(field(info.email), filled("", 128));
    EXPECT_EQ(info.flags, 16);
}

TEST_F(FactoryInfo, ListsOneClass) {
    EXPECT_EQ(factory->countClasses(), 1);
    PClassInfo record;
    EXPECT_EQ(factory->getClassInfo(1, &record), kInvalidArgument);
    EXPECT_EQ(factory->getClassInfo(-1, &record), kInvalidArgument);
}

TEST_F(FactoryInfo, DescribesTheClassInTheFirstRecordForm) {
    auto record = recordToFill<PClassInfo>();
    EXPECT_EQ(factory->getClassInfo(0, &record), kResultOk);
    EXPECT_EQ(std::memcmp(record.cid, kClassId.data(), kClassId.size()), 0);
    EXPECT_EQ(record.cardinality, 1);
    EXPECT_EQ(field(record.category), filled("Service", 32));
    EXPECT_EQ(field(record.name), filled("WY Beta", 64));
}

TEST_F(FactoryInfo, DescribesTheClassInTheSecondRecordForm) {
    const FUnknownPtr<IPluginFactory2> factory2(factory);
    auto record = recordToFill<PClassInfo2>();
    EXPECT_EQ(factory2->getClassInfo2(0, &record), kResultOk);
    EXPECT_EQ(std::memcmp(record.cid, kClassId.data(), kClassId.size()), 0);
    EXPECT_EQ(record.cardinality, 1);
    EXPECT_EQ(field(record.category), filled("Service", 32));
    EXPECT_EQ(field(record.name), filled("WY Beta", 64));
    EXPECT_EQ(record.classFlags, 0u);
    EXPECT_EQ(field(record.subCategories), filled("", 128));
    EXPECT_EQ(field(record.vendor), filled("", 64));
    EXPECT_EQ(field(record.version), filled("3.0.3", 64));
    EXPECT_EQ(field(record.sdkVersion), filled("4.1", 64));
}

TEST_F(FactoryInfo, DescribesTheClassInTheUnicodeRecordForm) {
    const FUnknownPtr<IPluginFactory3> factory3(factory);
    auto record = recordToFill<PClassInfoW>();
    EXPECT_EQ(factory3->getClassInfoUnicode(0, &record), kResultOk);
    EXPECT_EQ(std::memcmp(record.cid, kClassId.data(), kClassId.size()), 0);
    EXPECT_EQ(record.cardinality, 1);
    EXPECT_EQ(field(record.category), filled("Service", 32));
    EXPECT_EQ(field(record.name), filled(u"WY Beta", 64));
    EXPECT_EQ(record.classFlags, 0u);
    EXPECT_EQ(field(record.subCategories), filled("", 128));
    EXPECT_EQ(field(record.vendor), filled(u"", 64));
    EXPECT_EQ(field(record.version), filled(u"3.0.3", 64));
    EXPECT_EQ(field(record.sdkVersion), filled(u"4.1", 64));
}

TEST_F(Factory, AnswersAllThreeGenerationsOfItsInterface) {
    for (const FUID& id : {IPluginFactory::iid, IPluginFactory2::iid, IPluginFactory3::iid}) {
        void* face = nullptr;
        EXPECT_EQ(factory->queryInterface(id, &face), kResultOk);
        EXPECT_EQ(face, factory.get());
        EXPECT_EQ(factory->release(), 1u);
    }
}

TEST_F(Factory, IsTheSameObjectWithOneMoreReferenceAndStillOneClassForASecondCaller) {
    auto* const second = module.getPluginFactory();
    EXPECT_EQ(second, factory.get());
    EXPECT_EQ(second->countClasses(), 1);
    EXPECT_EQ(second->release(), 1u);
}

TEST_F(Factory, IsMadeAnewAfterItsLastRelease) {
    EXPECT_EQ(factory.take()->release(), 0u);
    factory = owned(module.getPluginFactory());
    EXPECT_EQ(factory->addRef(), 2u);
    EXPECT_EQ(factory->release(), 1u);
    EXPECT_EQ(factory->countClasses(), 1);
    EXPECT_EQ(create(tests::kPluginBaseId).take()->release(), 0u);
}

TEST_F(Factory, MakesAnExtensionWhoseOnlyReferenceIsTheCallers) {
    auto* const extension = create(tests::kPluginBaseId).take();
    EXPECT_EQ(extension->addRef(), 2u);
    EXPECT_EQ(extension->release(), 1u);
    EXPECT_EQ(extension->release(), 0u);
}

TEST_F(Factory, MakesAnExtensionForEachFaceThatItHas) {
    for (const auto& id : {tests::kUnknownId, tests::kPluginBaseId, tests::kProjectNotificationId,
                           tests::kProjectStorageNotificationId, tests::kProjectEditHookId}) {
        EXPECT_EQ(create(id).take()->release(), 0u);
    }
}

TEST_F(Factory, MakesAnotherExtensionEachTime) {
    const auto first = create(tests::kPluginBaseId);
    const auto second = create(tests::kPluginBaseId);
    EXPECT_NE(first.get(), second.get());
}

TEST_F(Factory, MakesNothingForAClassThatItDoesNotList) {
    auto classId = kClassId;
    ++classId.back();
    expectNothing(classId, tests::kPluginBaseId);
}

TEST_F(Factory, MakesNothingForAFaceThatTheExtensionDoesNotHave) {
    expectNothing(kClassId, tests::kProjectHostId);
}

TEST_F(Factory, MayGoBeforeTheExtensionsThatItMade) {
    const auto extension = create(tests::kPluginBaseId);
    EXPECT_EQ(factory.take()->release(), 0u);
    EXPECT_EQ(extension->initialize(host->context()), kResultOk);
    EXPECT_EQ(extension->terminate(), kResultOk);
}

} // namespace
} // namespace wybeta
