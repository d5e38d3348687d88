#pragma once

#include <QAbstractListModel>

namespace velorama {

class ListView;

/// The items of a ListView as Qt's views read them: the text as display and edit role, the number
/// of the image under IconRole. A withdrawn model has no rows.
class ListModel : public QAbstractListModel {
    Q_OBJECT
public:
    enum Role { IconRole = Qt::UserRole };

    explicit ListModel(ListView& list);

    bool isPublished() const { return published_; }
    void setPublished(bool published);
    void rowChanged(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    ListView& list_;
    bool published_ = true;
};

}  // namespace velorama
