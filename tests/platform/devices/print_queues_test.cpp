#include "platform/devices/print_queues.h"

#include "support/temp_tree.h"

#include <QFile>
#include <gtest/gtest.h>

namespace {

constexpr QSizeF kA4(210, 297);

// Helper programs of the test's own, in shell script.
class PrintQueues : public testing::Test {
protected:
    void setHelper(const std::string& script)
    {
        tree.add({"helper", "#!/bin/sh\n" + script + "\n"});
        QFile::setPermissions(helper, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QStringList names()
    {
        QStringList names;
        for (const platform::PrinterFacts& each : queues.list()) {
            names.append(each.name);
        }
        return names;
    }

    support::TempTree tree;
    QString helper = tree.path("helper");
    platform::PrintQueues queues{helper};
};

TEST_F(PrintQueues, AreNotAskedForAgainAtOnce)
{
    setHelper("echo >> " + tree.path("asked").toStdString() + "; printf 'Desk\\0001\\000'");
    EXPECT_EQ(names(), QStringList("Desk"));
    EXPECT_EQ(names(), QStringList("Desk"));
    EXPECT_EQ(tree.content("asked"), "\n");
}

TEST_F(PrintQueues, StayKnownAndTalkWhenOneOfThemIsSilent)
{
    setHelper("case \"$1 $2\" in"
              " 'list '*) printf 'Desk\\0001\\000Far\\0000\\000';;"
              " 'paper Far') exec sleep 60;;"
              " *) printf '100 200 300 400 600';;"
              " esac");
    EXPECT_FALSE(queues.traits(QStringLiteral("Far"), kA4));
    EXPECT_EQ(names(), QStringList({"Desk", "Far"}));
    const auto desk = queues.traits(QStringLiteral("Desk"), kA4);
    ASSERT_TRUE(desk);
    EXPECT_EQ(desk->dotsPerInch, 600);
    // It is left alone now, even where it would answer.
    setHelper("printf '100 200 300 400 600'");
    EXPECT_FALSE(queues.traits(QStringLiteral("Far"), kA4));
}

} // namespace
