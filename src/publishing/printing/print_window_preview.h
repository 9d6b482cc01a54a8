#pragma once

#include "platform/pictures/picture.h"

#include <QWidget>

namespace printing {

// Shows a page in the middle of itself, as large as it has room in the page's proportions. The
// page is the child picPreview, which the picture fills, and which is blank without one.
class PagePane : public QWidget {
    Q_OBJECT

public:
    explicit PagePane(QWidget* parent = nullptr);

    void setPage(const platform::Picture& page);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    class Page;

    void placePage();

    Page* m_page = nullptr; // a child
};

} // namespace printing
