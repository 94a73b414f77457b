// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

struct TableGrid;

namespace batch {

/// A document that is put together piece by piece. Texts are plain; what the format takes for
/// markup is escaped.
class ReportDocument
{
public:
    ReportDocument() = default;
    virtual ~ReportDocument() = default;
    ReportDocument(const ReportDocument&) = delete;
    ReportDocument& operator=(const ReportDocument&) = delete;

    virtual void heading(int level, const QString& text) = 0;
    virtual void paragraph(const QString& text) = 0;
    virtual void list(const QStringList& lines) = 0;
    virtual void table(const TableGrid& grid) = 0;
    /// @param file  for the picture, where the format keeps pictures outside of the document
    virtual void picture(const QByteArray& png, const QString& file,
                         const QString& description) = 0;
    virtual QString text() const = 0;
};

/// Everything in one file, pictures too.
class HtmlReport : public ReportDocument
{
public:
    explicit HtmlReport(const QString& title) : m_title(title) {}

    void heading(int level, const QString& text) override;
    void paragraph(const QString& text) override;
    void list(const QStringList& lines) override;
    void table(const TableGrid& grid) override;
    void picture(const QByteArray& png, const QString& file, const QString& description) override;
    QString text() const override;

private:
    QString m_title;
    QString m_body;
};

class MarkdownReport : public ReportDocument
{
public:
    void heading(int level, const QString& text) override;
    void paragraph(const QString& text) override;
    void list(const QStringList& lines) override;
    void table(const TableGrid& grid) override;
    void picture(const QByteArray& png, const QString& file, const QString& description) override;
    QString text() const override { return m_text; }

    /// Path and bytes of each picture.
    const QList<std::pair<QString, QByteArray>>& pictures() const { return m_pictures; }

private:
    QString m_text;
    QList<std::pair<QString, QByteArray>> m_pictures;
};

/// @p html on pages of paper. Needs a DrawingRoom.
QByteArray paperOf(const QString& html, const QString& title);

} // namespace batch
