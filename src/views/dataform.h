// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "views/sessionface.h"

#include <QWidget>

class AsciiData;

/// The "Raw data" page: the matrix as read, the choice of orientation, names, and the save.
class DataForm : public QWidget
{
    Q_OBJECT

public:
    DataForm(SessionFace* session, QWidget* tabWidget);
    ~DataForm() override;

    /// Shows @p data, which must live until the session is destroyed.
    void fill(const AsciiData& data);
};
