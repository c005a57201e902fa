#include "platform/mail/transcript.h"

#include <gtest/gtest.h>

using mail::Step;
using mail::Transcript;

TEST(MailTranscript, TakesDownBothSides) {
    Transcript transcript;
    transcript.heard("220 mail.example.org ready\r\n");
    transcript.said("EHLO desk\r\n");
    EXPECT_EQ(transcript.text(), "< 220 mail.example.org ready\n> EHLO desk\n");
}

TEST(MailTranscript, MasksThePasswordInEveryMechanism) {
    Transcript login;
    login.said("AUTH LOGIN\r\n");
    login.heard("334 VXNlcm5hbWU6\r\n");
    login.said("ZGVzaw==\r\n");
    login.heard("334 UGFzc3dvcmQ6\r\n");
    login.said("c2VjcmV0\r\n");
    login.heard("235 Good\r\n");
    login.said("MAIL FROM:<desk@practice.example>\r\n");
    EXPECT_EQ(login.text(),
              "> AUTH LOGIN\n< 334 VXNlcm5hbWU6\n> ****\n< 334 UGFzc3dvcmQ6\n> ****\n< 235 Good\n"
              "> MAIL FROM:<desk@practice.example>\n");

    Transcript plain;
    plain.said("auth PLAIN AGRlc2sAc2VjcmV0\r\n");
    EXPECT_EQ(plain.text(), "> auth PLAIN ****\n");
}

TEST(MailTranscript, MasksThePasswordThatTheServerRepeats) {
    Transcript transcript;
    transcript.said("AUTH PLAIN AGRlc2sAc2VjcmV0\r\n");
    transcript.heard("500 Unknown command: AUTH PLAIN AGRlc2sAc2VjcmV0\r\n");
    EXPECT_EQ(transcript.text(), "> AUTH PLAIN ****\n< 500 Unknown command: AUTH PLAIN ****\n");
    ASSERT_TRUE(transcript.refusal());
    EXPECT_EQ(transcript.refusal()->text, "Unknown command: AUTH PLAIN ****");
}

TEST(MailTranscript, ARefusalOfSeveralLinesIsOneText) {
    Transcript transcript;
    transcript.heard("550-5.1.1 There is nobody\r\n");
    transcript.heard("550 5.1.1 of that name.\r\n");
    ASSERT_TRUE(transcript.refusal());
    EXPECT_EQ(transcript.refusal()->code, 550);
    EXPECT_EQ(transcript.refusal()->text, "5.1.1 There is nobody 5.1.1 of that name.");
    transcript.said("QUIT\r\n");
    transcript.heard("221 Bye\r\n");
    EXPECT_TRUE(transcript.refusal());
    transcript.said("RSET\r\n");
    EXPECT_FALSE(transcript.refusal());
}

TEST(MailTranscript, NoticesWhatTheServerOffers) {
    Transcript transcript;
    transcript.heard("250-mail.example.org\r\n");
    EXPECT_FALSE(transcript.offersUtf8());
    transcript.heard("250-smtputf8\r\n");
    transcript.heard("250 HELP\r\n");
    EXPECT_TRUE(transcript.offersUtf8());
}

TEST(MailTranscript, TellsHowFarTheConversationIs) {
    Transcript transcript;
    EXPECT_EQ(transcript.step(), Step::Connecting);
    transcript.said("AUTH LOGIN\r\n");
    EXPECT_EQ(transcript.step(), Step::SigningIn);
    transcript.heard("235 Good\r\n");
    transcript.said("MAIL FROM:<a@example.org>\r\n");
    EXPECT_EQ(transcript.step(), Step::Sending);
}

TEST(MailTranscript, AServerThatDoesNotStopTalkingFillsNoMemory) {
    Transcript transcript;
    for (int i = 0; i < 10'000; ++i)
        transcript.heard("220-" + QByteArray(80, 'x') + "\r\n");
    EXPECT_LE(transcript.text().size(), 65'536);
}
