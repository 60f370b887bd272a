#pragma once

#include <QLayout>
#include <memory>
#include <vector>

/** Lays widgets side by side in as many rows as it takes; what is in a row stands in its middle. */
class WrappingLayout : public QLayout
{
    Q_OBJECT

public:
    WrappingLayout();
    ~WrappingLayout() override;
    Q_DISABLE_COPY_MOVE(WrappingLayout)

    void addItem(QLayoutItem* item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;

    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int width) const override;
    /** All in one row. */
    [[nodiscard]] QSize sizeHint() const override;
    /** The largest alone. */
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect& place) override;

private:
    template<class Put> int PutRows(int width, Put put) const;

    std::vector<std::unique_ptr<QLayoutItem>> items_;
};
