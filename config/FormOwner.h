#pragma once

/// A form that wants to refresh itself when a document closes.
class FormOwner
{
public:
    FormOwner() = default;
    FormOwner(const FormOwner &) = delete;
    FormOwner &operator=(const FormOwner &) = delete;
    virtual ~FormOwner() = default;

    virtual void Form_Load() = 0;
};
