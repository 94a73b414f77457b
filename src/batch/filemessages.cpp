// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/filemessages.h"

#include "batch/console.h"
#include "numerics/errorreport.h"

#include <QCoreApplication>

namespace batch {

namespace {

FileMessages* messagesInForce = nullptr;

} // namespace

FileMessages::FileMessages(const QString& file) : m_file(file)
{
    messagesInForce = this;
    setReaderReport([](const ReaderMessage& message) { messagesInForce->add(message); });
    pelmora::setErrorReport([](const char* text) { messagesInForce->addNumericalFault(text); });
}

FileMessages::~FileMessages()
{
    setReaderReport(nullptr);
    pelmora::setErrorReport(nullptr);
    messagesInForce = nullptr;
}

void FileMessages::add(const ReaderMessage& message)
{
    tell(m_file, message.text);
    m_messages.append(message);
}

void FileMessages::warn(const QString& title, const QString& text)
{
    add({ReaderMessage::Severity::Warning, title, text});
}

void FileMessages::addNumericalFault(const char* text)
{
    m_numericalFault = true;
    warn(QCoreApplication::translate("Numerics", "Error"),
         QCoreApplication::translate("Numerics", text));
}

} // namespace batch
