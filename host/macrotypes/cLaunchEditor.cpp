#include "cLaunchEditor.h"

#include "FormSizes.h"
#include "MacroTypeIds.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>
#include <QVBoxLayout>

cLaunchEditor::cLaunchEditor(const cJsonValue& macro)
    : cMacroForm(MacroTypeIds::Launch, QLatin1String("command_launch.htm"), {"path", "arguments", "folder"})
{
    m_path = makeField(tr("Program or file"));
    m_arguments = makeField(tr("Arguments"), tr("None"));
    m_folder = makeField(tr("Working folder"), tr("The program's folder"));
    addRow(tr("&Program or file:"), m_path,
        makeBrowseButton(tr("Browse for a program or file"), SLOT(onBrowsePath())));
    addRow(tr("Ar&guments:"), m_arguments, nullptr);
    addRow(tr("&Working folder:"), m_folder,
        makeBrowseButton(tr("Browse for a working folder"), SLOT(onBrowseFolder())));
    formLayout()->addStretch();
    setFocusProxy(m_path);
    fill(macro);
}

QLineEdit* cLaunchEditor::makeField(const QString& accessibleName, const QString& vacantText)
{
    QLineEdit* const field = makeLineEdit(accessibleName, vacantText);
    connect(field, SIGNAL(textChanged(QString)), this, SLOT(formChanged()));
    return field;
}

QPushButton* cLaunchEditor::makeBrowseButton(const QString& accessibleName, const char* slot)
{
    auto* const button = new QPushButton(tr("Browse..."));
    button->setProperty("uiType", QStringLiteral("grayButton"));
    button->setAutoDefault(false);
    button->setAccessibleName(accessibleName);
    connect(button, SIGNAL(clicked()), this, slot);
    return button;
}

void cLaunchEditor::addRow(const QString& label, QLineEdit* field, QPushButton* button)
{
    auto* const row = new QHBoxLayout;
    row->addWidget(field, 1);
    if (button)
        row->addWidget(button);
    formLayout()->addWidget(makeLabel(label, field));
    formLayout()->addLayout(row);
    formLayout()->addSpacing(FormSizes::Spacing);
}

QString cLaunchEditor::defaultMacroName()
{
    const QFileInfo file(QDir::fromNativeSeparators(form().path));
    return shortened(file.completeBaseName().isEmpty() ? file.fileName() : file.completeBaseName());
}

bool cLaunchEditor::setForm(const cJsonValue& data)
{
    const auto launch = cLaunchType::fromData(data);
    if (launch)
        showForm(*launch);
    return launch.has_value();
}

cJsonValue cLaunchEditor::formData() const
{
    return cLaunchType::toData(form());
}

void cLaunchEditor::clearForm()
{
    showForm(LaunchInput());
}

bool cLaunchEditor::isFilled() const
{
    return !form().path.isEmpty();
}

cMacroForm::Objection cLaunchEditor::check()
{
    const LaunchInput launch = form();
    if (launch.path.isEmpty())
        return {tr("Choose the program or file that this command opens."), m_path};
    if (QStandardPaths::findExecutable(launch.path).isEmpty() && !QFileInfo(launch.path).isFile())
        return {tr("There is no program or file \"%1\".").arg(launch.path), m_path};
    if (launch.arguments.count(QLatin1Char('"')) % 2)
        return {tr("A quotation mark in the arguments is not closed."), m_arguments};
    if (!launch.folder.isEmpty() && !QFileInfo(launch.folder).isDir())
        return {tr("There is no folder \"%1\".").arg(launch.folder), m_folder};
    return {};
}

void cLaunchEditor::onBrowsePath()
{
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Choose a Program or File"), QFileInfo(form().path).absolutePath());
    if (!path.isEmpty())
        m_path->setText(QDir::toNativeSeparators(path));
}

void cLaunchEditor::onBrowseFolder()
{
    const LaunchInput launch = form();
    const QString start = launch.folder.isEmpty() ? QFileInfo(launch.path).absolutePath() : launch.folder;
    const QString path = QFileDialog::getExistingDirectory(this, tr("Choose a Working Folder"), start);
    if (!path.isEmpty())
        m_folder->setText(QDir::toNativeSeparators(path));
}

void cLaunchEditor::showForm(const LaunchInput& launch)
{
    m_path->setText(launch.path);
    m_arguments->setText(launch.arguments);
    m_folder->setText(launch.folder);
}

LaunchInput cLaunchEditor::form() const
{
    return {m_path->text().trimmed(), m_arguments->text().trimmed(), m_folder->text().trimmed()};
}
