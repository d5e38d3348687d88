#pragma once

#include <QAbstractListModel>
#include <QPoint>
#include <QTimer>

namespace velorama {

class ListView;

/// The items of a ListView as Qt's views read them: the text as display and edit role, the number
/// of the image under IconRole, the mark under MarkRole, and what it means as the description for
/// those who do not see it.
///
/// The items are the truth; the model is withdrawn at the first change of the rows, has none then,
/// and is published again when something is to be seen or touched. So thousands of changes in one
/// go cost what they cost in the list, and nothing in the view. Rows that come behind all others of
/// a list in sight follow a little later instead: each would have the whole list laid out again.
class ListModel : public QAbstractListModel {
    Q_OBJECT
public:
    enum Role { IconRole = Qt::UserRole, MarkRole };

    explicit ListModel(ListView& list);

    bool isPublished() const { return published_; }
    /// Selection and current item are being brought over: what the view tells of them is no news.
    bool isPublishing() const { return publishing_; }
    void withdraw();
    void publish();
    /// A row has come behind all others of a published list.
    void appended();
    /// The rows that the view knows of; more may have been appended.
    int shownRows() const { return rows_; }
    void showAppended();
    /// The selection and the current item of a list that is published.
    void publishSelection();
    /// Published next, the list begins at its first item.
    void forgetScroll() { scroll_ = {}; }
    /// Withdraws for good, without a word.
    void end();
    void rowChanged(int row);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void setPublished(bool published);
    void publishIfVisible();

    ListView& list_;
    QPoint scroll_;
    QTimer appending_;
    int rows_ = 0;
    bool published_ = true;
    bool publishing_ = false;
};

}  // namespace velorama
