#pragma once

#include "support/fake_dialogs.h"
#include "support/temp_tree.h"
#include "test_pictures.h"
#include "viewer/picture_viewer.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <gtest/gtest.h>

// A host window with a viewer of 400 x 300 pixels, both shown, and dialogs that are written down.
class ViewerWindow : public testing::Test {
protected:
    ViewerWindow()
        : viewer(&host)
    {
        host.resize(500, 400);
        viewer.setHost(&host);
        viewer.setGeometry(10, 20, 400, 300);
        host.show();
    }

    QWidget* part(const char* name) const { return viewer.findChild<QWidget*>(name); }
    QWidget* iDst() const { return part("iDst"); }
    QScrollBar* hSB() const { return viewer.findChild<QScrollBar*>("hSB"); }
    QScrollBar* vSB() const { return viewer.findChild<QScrollBar*>("vSB"); }

    static void sendMouse(QWidget* target, QEvent::Type type, QPoint place, Qt::MouseButton button,
                          Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers = {})
    {
        QMouseEvent event(type, place, target->mapToGlobal(place), button, buttons, modifiers);
        QCoreApplication::sendEvent(target, &event);
    }
    static void press(QWidget* target, QPoint place, Qt::KeyboardModifiers modifiers = {})
    {
        sendMouse(target, QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton,
                  modifiers);
    }
    static void drag(QWidget* target, QPoint place)
    {
        sendMouse(target, QEvent::MouseMove, place, Qt::NoButton, Qt::LeftButton);
    }
    static void release(QWidget* target, QPoint place, Qt::KeyboardModifiers modifiers = {})
    {
        sendMouse(target, QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton,
                  modifiers);
    }

    support::TempTree tree;
    support::FakeDialogs recorded;
    QWidget host;
    cpvPicViewer viewer;
};
