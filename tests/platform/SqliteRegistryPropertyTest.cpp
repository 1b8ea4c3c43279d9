// Random operations on the store and on a plain model in memory have the same results and end in the same tree.
#include "platform/linux/SqliteRegistry.h"
#include "tests/platform/FileWorld.h"
#include "tests/platform/RegistryUser.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <memory>
#include <string>

namespace {

using Handle = Registry::Handle;
using Result = Registry::Result;

struct ModelValue
{
    QByteArray name;
    quint32 type;
    QByteArray data;
};

/// A key as the model sees it; the maps are by the folded name, and so in the order of enumeration.
struct ModelKey
{
    QByteArray name;
    bool isDeleted = false;
    std::map<std::string, std::shared_ptr<ModelKey>> keys;
    std::map<std::string, ModelValue> values;
};

std::string foldedName(const QByteArray &name)
{
    // As far as name() goes.
    static const std::string lower = "abcdefghijklmnopqrstuvwxyz\xE4\xE9\xFC";
    static const std::string upper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ\xC4\xC9\xDC";
    std::string folded = name.toStdString();
    for (char &c : folded) {
        const size_t at = lower.find(c);
        if (at != std::string::npos)
            c = upper[at];
    }
    return folded;
}

class SqliteRegistryProperty : public FileWorld
{
protected:
    struct OpenKey
    {
        Handle handle;
        std::shared_ptr<ModelKey> key;
    };

    void SetUp() override
    {
        FileWorld::SetUp();
        for (auto &registry : m_registries)
            registry = std::make_unique<SqliteRegistry>(at("registry.db"), "me");
    }

    void step()
    {
        // Each open key belongs to one of two programs that share the store.
        m_program = size_t(random.number(0, 1));
        switch (random.number(0, 9)) {
        case 0:
        case 1:
            return create();
        case 2:
            return open();
        case 3:
            return close();
        case 4:
            return remove();
        case 5:
        case 6:
            return setValue();
        case 7:
            return removeValue();
        default:
            return compareOne();
        }
    }

    void compareAll() { compareTree(Registry::CurrentUser, *root); }

    Random random{1};

private:
    [[nodiscard]] SqliteRegistry &registry() { return *m_registries[m_program]; }
    [[nodiscard]] QList<OpenKey> &openKeys() { return m_openKeys[m_program]; }

    [[nodiscard]] QByteArray name()
    {
        static const QByteArrayList names{"a", "A", "b", "C", "\xE9", "\xC9", "\xE4y", "long name", "LONG NAME"};
        return random.oneOf(names);
    }

    [[nodiscard]] QByteArrayList path()
    {
        QByteArrayList parts;
        for (int count = random.number(1, 3); count > 0; --count)
            parts << name();
        return parts;
    }

    /// One of the open keys, or the hive.
    [[nodiscard]] OpenKey anyKey()
    {
        return openKeys().isEmpty() || random.chance(30) ? OpenKey{Registry::CurrentUser, root}
                                                         : random.oneOf(openKeys());
    }

    [[nodiscard]] static std::shared_ptr<ModelKey> find(std::shared_ptr<ModelKey> key, const QByteArrayList &parts)
    {
        for (const QByteArray &part : parts) {
            const auto found = key->keys.find(foldedName(part));
            if (found == key->keys.end())
                return nullptr;
            key = found->second;
        }
        return key;
    }

    void create()
    {
        const OpenKey start = anyKey();
        const QByteArrayList parts = path();
        Handle handle = 0;
        quint32 disposition = 0;
        const Result result = registry().RegCreateKeyExA(start.handle, parts.join('\\'), {}, 0, Registry::AllAccess,
                                                         &handle, &disposition);
        if (start.key->isDeleted) {
            EXPECT_EQ(result, Result::KeyDeleted);
            return;
        }
        ASSERT_EQ(result, Result::Success);
        std::shared_ptr<ModelKey> key = start.key;
        bool isNew = false;
        for (const QByteArray &part : parts) {
            std::shared_ptr<ModelKey> &next = key->keys[foldedName(part)];
            isNew = next == nullptr;
            if (isNew) {
                next = std::make_shared<ModelKey>();
                next->name = part;
            }
            key = next;
        }
        EXPECT_EQ(disposition, isNew ? Registry::CreatedNewKey : Registry::OpenedExistingKey);
        openKeys() << OpenKey{handle, key};
    }

    void open()
    {
        const OpenKey start = anyKey();
        const QByteArrayList parts = path();
        Handle handle = 0;
        const Result result = registry().RegOpenKeyExA(start.handle, parts.join('\\'), 0, Registry::AllAccess, &handle);
        const auto found = find(start.key, parts);
        if (start.key->isDeleted)
            EXPECT_EQ(result, Result::KeyDeleted);
        else
            EXPECT_EQ(result, found == nullptr ? Result::FileNotFound : Result::Success);
        if (result == Result::Success)
            openKeys() << OpenKey{handle, found};
    }

    void close()
    {
        if (openKeys().isEmpty())
            return;
        const OpenKey closed = openKeys().takeAt(random.number(0, int(openKeys().size()) - 1));
        EXPECT_EQ(registry().RegCloseKey(closed.handle), Result::Success);
    }

    void remove()
    {
        const OpenKey start = anyKey();
        const QByteArrayList parts = path();
        const Result result = registry().RegDeleteKeyA(start.handle, parts.join('\\'));
        const auto found = find(start.key, parts);
        if (start.key->isDeleted) {
            EXPECT_EQ(result, Result::KeyDeleted);
        } else if (found == nullptr) {
            EXPECT_EQ(result, Result::FileNotFound);
        } else if (!found->keys.empty()) {
            EXPECT_EQ(result, Result::AccessDenied);
        } else {
            EXPECT_EQ(result, Result::Success);
            found->isDeleted = true;
            find(start.key, parts.first(parts.size() - 1))->keys.erase(foldedName(parts.last()));
        }
    }

    void setValue()
    {
        const OpenKey key = anyKey();
        const ModelValue value{name(), quint32(random.number(0, 12)), random.bytes(40)};
        const Result result = registry().RegSetValueExA(key.handle, value.name, value.type, value.data);
        EXPECT_EQ(result, key.key->isDeleted ? Result::KeyDeleted : Result::Success);
        if (key.key->isDeleted)
            return;
        ModelValue &stored = key.key->values[foldedName(value.name)];
        stored = {stored.name.isNull() ? value.name : stored.name, value.type, value.data};
    }

    void removeValue()
    {
        const OpenKey key = anyKey();
        const QByteArray removed = name();
        const Result result = registry().RegDeleteValueA(key.handle, removed);
        if (key.key->isDeleted)
            EXPECT_EQ(result, Result::KeyDeleted);
        else
            EXPECT_EQ(result, key.key->values.erase(foldedName(removed)) > 0 ? Result::Success : Result::FileNotFound);
    }

    void compareOne()
    {
        const OpenKey key = anyKey();
        if (key.key->isDeleted)
            EXPECT_EQ(RegistryUser(registry()).enumerateKeyResult(key.handle), Result::KeyDeleted);
        else
            compareContent(key.handle, *key.key);
    }

    void compareContent(Handle handle, const ModelKey &key)
    {
        const RegistryUser user(registry());
        QByteArrayList keyNames;
        for (const auto &[folded, child] : key.keys)
            keyNames << child->name;
        EXPECT_EQ(user.subKeys(handle), keyNames);
        QByteArrayList valueNames;
        qsizetype longest = 0;
        for (const auto &[folded, value] : key.values) {
            valueNames << value.name;
            longest = std::max(longest, value.data.size());
            quint32 type = 0;
            quint32 size = 0;
            EXPECT_EQ(registry().RegQueryValueExA(handle, value.name, &type, nullptr, &size), Result::Success);
            EXPECT_EQ(type, value.type);
            EXPECT_EQ(user.get(handle, value.name), value.data);
        }
        std::sort(valueNames.begin(), valueNames.end());
        EXPECT_EQ(user.valueNames(handle), valueNames);
        EXPECT_EQ(user.info(handle).subKeys, keyNames.size());
        EXPECT_EQ(user.info(handle).values, valueNames.size());
        EXPECT_EQ(user.info(handle).longestData, longest);
    }

    void compareTree(Handle handle, const ModelKey &key)
    {
        compareContent(handle, key);
        const RegistryUser user(registry());
        for (const auto &[folded, child] : key.keys) {
            const Handle below = user.opened(handle, child->name);
            compareTree(below, *child);
            user.close(below);
        }
    }

    std::shared_ptr<ModelKey> root = std::make_shared<ModelKey>();
    std::array<std::unique_ptr<SqliteRegistry>, 2> m_registries;
    std::array<QList<OpenKey>, 2> m_openKeys;
    size_t m_program = 0;
};

TEST_F(SqliteRegistryProperty, StoreDoesAsThePlainModel)
{
    for (unsigned seed = 1; seed <= 3; ++seed) {
        random = Random(seed);
        for (int count = 0; count < 300 && !HasFailure(); ++count) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << count);
            step();
        }
        compareAll();
    }
}

} // namespace
