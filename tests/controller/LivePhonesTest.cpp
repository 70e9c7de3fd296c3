#include "controller/LivePhones.h"

#include <gmock/gmock.h>

#include <QStringList>

using namespace Qt::StringLiterals;

namespace pevrix {
namespace {

// Takes the orders down, one a line.
class OrderBook final : public IVideoSwitch
{
public:
    void askForVideo(int id, bool on) override
    {
        m_orders += u"%1 %2"_s.arg(on ? u"send"_s : u"hold"_s).arg(id);
    }
    void startStream(QSize size, bool direct) override
    {
        m_orders += u"%1 x %2%3"_s.arg(size.width())
                        .arg(size.height())
                        .arg(direct ? u" direct"_s : QString());
    }
    void setFrameRate(int fps) override { m_orders += u"at %1"_s.arg(fps); }
    void goIdle() override { m_orders += u"idle"_s; }

    [[nodiscard]] std::string take()
    {
        return std::exchange(m_orders, {}).join(u", "_s).toStdString();
    }

private:
    QStringList m_orders;
};

class LivePhonesTest : public testing::Test
{
protected:
    void add(int id, bool usb = false)
    {
        m_phones.add({id, QString::number(id), {}, {}, {}, {}, usb});
    }

    OrderBook m_orders;
    LivePhones m_phones{m_orders};
};

} // namespace

TEST_F(LivePhonesTest, OnePhoneStreamsAndTheOthersHold)
{
    add(1);
    EXPECT_EQ(m_orders.take(), "send 1");
    m_phones.setStream(1, {1280, 720}, 30);
    EXPECT_EQ(m_orders.take(), "at 30, 1280 x 720");
    add(2, true);
    EXPECT_EQ(m_orders.take(), "");
    m_phones.setStream(2, {720, 1280}, 60); // remembered until it is its turn
    EXPECT_EQ(m_orders.take(), "at 60");

    EXPECT_TRUE(m_phones.activate(2));
    EXPECT_EQ(m_orders.take(), "hold 1, send 2, 720 x 1280 direct");
    EXPECT_FALSE(m_phones.activate(2));
    EXPECT_FALSE(m_phones.activate(7));
    EXPECT_EQ(m_orders.take(), "");

    m_phones.remove(2);
    EXPECT_EQ(m_orders.take(), "send 1, 1280 x 720");
    m_phones.remove(1);
    EXPECT_EQ(m_orders.take(), "idle");
    m_phones.remove(1);
    add(3);
    EXPECT_EQ(m_orders.take(), "send 3") << "nothing is known of its stream";
}

TEST_F(LivePhonesTest, AStreamDescribedBeforeTheHelloCountsAfterIt)
{
    m_phones.setStream(5, {640, 480}, 30);
    m_phones.setStream(6, {1, 1}, 1); // the latest alone
    m_phones.setStream(5, {320, 240}, 24);
    EXPECT_EQ(m_orders.take(), "");
    add(6);
    EXPECT_EQ(m_orders.take(), "send 6");
    m_phones.remove(6);
    static_cast<void>(m_orders.take());
    add(5);
    EXPECT_EQ(m_orders.take(), "send 5, at 24, 320 x 240");
}

} // namespace pevrix
