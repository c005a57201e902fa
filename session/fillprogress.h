#pragma once

#include <QProgressBar>

class ListFiller;

/// Shows how much of a list is filled, in percent. It is hidden while nothing is being filled and keeps its place then,
/// so that nothing jumps.
class FillProgress : public QProgressBar {
    Q_OBJECT

  public:
    explicit FillProgress(const ListFiller& filler, QWidget* parent = nullptr);

  private:
    void follow(int loaded, int total);
};
