// Tests of the order in which bytes are sent, and that memory is released after they have been sent.
#include "server/Outgoing.h"

#include <gtest/gtest.h>

#include <string>

namespace tarveth {
namespace {

// Takes at most that many pending bytes, as if they had been sent.
std::string Take(Outgoing& out, Outbox& box, std::size_t most = std::string::npos) {
    std::string sent;
    for (const std::string_view part : out.Pending(box, 64))
        sent += part.substr(0, most - sent.size());
    out.Sent(box, sent.size());
    return sent;
}

// As at the end of a round in which everybody was sent the announcements.
void ForgetAll(Outgoing& out) {
    out.ForgetAnnouncements(out.AnnouncementsEnd());
}

TEST(Outgoing, MessagesToOneAndToAllComeInOrder) {
    Outgoing out;
    Outbox a;
    Outbox b;
    out.ToAll({"0"});
    out.StartListening(a);
    out.ToAll({"1"});
    out.ToOne(a, {"2", "3"});
    out.ToOne(b, {"x"});
    out.ToAll({"4"});
    out.ToAll({"5"});
    EXPECT_EQ(out.Unsent(a), 5U);
    EXPECT_EQ(Take(out, a), "12345");
    EXPECT_EQ(Take(out, b), "x");
    out.ToAll({"6"});
    EXPECT_EQ(Take(out, a), "6");
    EXPECT_EQ(out.Unsent(a), 0U);
}

TEST(Outgoing, WhatCouldNotBeSentOutlivesTheRound) {
    Outgoing out;
    Outbox box;
    out.StartListening(box);
    out.ToOne(box, {"abc"});
    out.ToAll({"def"});
    EXPECT_EQ(Take(out, box, 2), "ab");
    ForgetAll(out);
    for (int i = 0; i < 100; ++i) {
        out.ToAll({std::string(1000, 'x')});
        Outbox other;
        out.ToOne(other, {std::string(1000, 'y')});
        out.QueueAnnouncements(box);
        ForgetAll(out);
    }
    EXPECT_EQ(Take(out, box), "cdef" + std::string(100000, 'x'));
}

TEST(Outgoing, WritesOfEverySizeKeepTheBytes) {
    for (std::size_t most = 1; most < 30; ++most) {
        Outgoing out;
        Outbox box;
        out.StartListening(box);
        std::string expected;
        std::string sent;
        for (int i = 0; i < 50; ++i) {
            const std::string text = std::to_string(i) + ",";
            if (i % 3 == 0)
                out.ToAll({text});
            else
                out.ToOne(box, {text});
            expected += text;
            sent += Take(out, box, most);
            if (i % 7 == 3)
                out.Hold(box);
            out.QueueAnnouncements(box);
            if (i % 5 == 0)
                ForgetAll(out);
        }
        while (out.Unsent(box) > 0)
            sent += Take(out, box, most);
        EXPECT_EQ(sent, expected) << most;
    }
}

TEST(Outgoing, ASkippedAnnouncementIsNotSent) {
    Outgoing out;
    Outbox box;
    out.StartListening(box);
    out.ToAll({"1"});
    out.QueueAnnouncements(box);
    out.ToAll({"2"});
    out.SkipAnnouncement(box);
    out.ToAll({"3"});
    EXPECT_EQ(Take(out, box), "13");
}

// One user has been sent the first round, the other one is still to come when the second one is announced.
TEST(Outgoing, AnnouncementsOfTwoRoundsComeOnceAndInOrder) {
    Outgoing out;
    Outbox early;
    Outbox late;
    out.StartListening(early);
    out.StartListening(late);
    out.ToAll({"1"});
    const std::uint64_t first = out.AnnouncementsEnd();
    EXPECT_EQ(Take(out, early), "1");
    out.ToAll({"2"});
    out.ToOne(late, {"x"});
    EXPECT_EQ(Take(out, late), "12x");
    out.ForgetAnnouncements(first);
    EXPECT_TRUE(out.HasAnnouncements());
    out.ToAll({"3"});
    EXPECT_EQ(Take(out, late), "3");
    EXPECT_EQ(Take(out, early), "23");
    ForgetAll(out);
    EXPECT_FALSE(out.HasAnnouncements());
    EXPECT_EQ(out.Unsent(early) + out.Unsent(late), 0U);
}

TEST(Outgoing, TextsThatFollowEachOtherAreOnePart) {
    Outgoing out;
    Outbox box;
    for (int i = 0; i < 100; ++i)
        out.ToOne(box, {"M"});
    EXPECT_EQ(out.Pending(box, 64).size(), 1U);
}

TEST(Outgoing, AnIdleOutboxHoldsNoBlock) {
    Outgoing out;
    Outbox box;
    out.ToOne(box, {"M"});
    Take(out, box);
    EXPECT_TRUE(box.slices.empty());
}

TEST(Outgoing, AFewUnsentBytesDoNotHoldAWholeBlock) {
    Outgoing out;
    Outbox box;
    out.ToOne(box, {"abc"});
    Take(out, box, 1);
    ASSERT_EQ(box.slices.size(), 1U);
    EXPECT_EQ(box.slices.front().block->capacity, 2U);
}

// Between the bytes for the slow box, others fill the blocks.
TEST(Outgoing, ASlowBoxHoldsLittleMoreThanItsUnsentBytes) {
    Outgoing out;
    Outbox slow;
    out.StartListening(slow);
    std::string expected;
    for (int i = 0; i < 2000; ++i) {
        out.ToOne(slow, {"letter"});
        out.ToAll({"news"});
        out.QueueAnnouncements(slow);
        ForgetAll(out);
        out.Hold(slow);
        expected += "letternews";
        Outbox other;
        out.ToOne(other, {std::string(20000, 'x')});
        out.ToAll({std::string(20000, 'y')});
        out.SkipAnnouncement(slow);
        ForgetAll(out);
    }
    constexpr std::size_t kBlocksOfTheWriters = std::size_t{3} * 65536;
    EXPECT_EQ(slow.unsent, expected.size());
    EXPECT_GE(out.HeldBy(slow), slow.unsent);
    EXPECT_LT(out.HeldBy(slow), 2 * slow.unsent + kBlocksOfTheWriters);
    EXPECT_LT(out.BytesHeld(), 2 * slow.unsent + kBlocksOfTheWriters);
    std::string sent;
    while (out.Unsent(slow) > 0)
        sent += Take(out, slow);
    EXPECT_EQ(sent, expected);
    EXPECT_LT(out.HeldBy(slow), 200U);
    EXPECT_LT(out.BytesHeld(), kBlocksOfTheWriters);
}

TEST(Outgoing, LargeSlicesOfASlowBoxAreSharedAndCountInFull) {
    Outgoing out;
    Outbox a;
    Outbox b;
    out.StartListening(a);
    out.StartListening(b);
    for (int i = 0; i < 100; ++i)
        out.ToAll({std::string(60000, 'x')});
    out.Hold(a);
    out.Hold(b);
    ForgetAll(out);
    EXPECT_LT(out.BytesHeld(), 102U * 65536U);
    EXPECT_GE(out.HeldBy(a), 100U * 65536U);
    Outgoing::Discard(a);
    Outgoing::Discard(b);
    EXPECT_LT(out.BytesHeld(), 2U * 65536U);
}

} // namespace
} // namespace tarveth
