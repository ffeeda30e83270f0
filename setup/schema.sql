-- The tables of Talvora, in T-SQL. Run them in an empty database of the collation Chinese_PRC_CI_AS; the embedded
-- database file is made from this same script. Each batch ends with a line GO.
--
-- Sizes are those of the dialogs where a dialog limits the text, and roomy where it does not. Text is nvarchar
-- throughout: no fixed-width column, so that codes need no trimming and "max" works on every server. There are no
-- foreign keys: every cascade is made by the client's own statements, and several links go by name.

-- ---------------------------------------------------------------------------------------------------------------
-- Access control
-- ---------------------------------------------------------------------------------------------------------------
create table Users (
    UserID int identity(1,1) not null primary key,
    UserName nvarchar(25) null,
    UserDesc nvarchar(50) null,
    Password nvarchar(25) null,
    Locked smallint null
)
GO
create index IX_Users_UserName on Users (UserName)
GO
create table UserRole (
    UserID int null,
    RoleID int null
)
GO
create index IX_UserRole_UserID on UserRole (UserID, RoleID)
GO
create index IX_UserRole_RoleID on UserRole (RoleID)
GO
-- The code generator gives codes of 4 and 7 characters once its scheme has run out, hence the width of RoleCode.
create table Roles (
    RoleID int identity(1,1) not null primary key,
    RoleName nvarchar(25) null,
    RoleCode nvarchar(10) null,
    RoleDesc nvarchar(100) null
)
GO
create index IX_Roles_RoleCode on Roles (RoleCode)
GO
create index IX_Roles_RoleName on Roles (RoleName)
GO
create table RoleRight (
    RoleID int null,
    ModuleCode nvarchar(6) null,
    ModuleFunction nvarchar(30) null,
    IsAccess smallint null
)
GO
create index IX_RoleRight_RoleID on RoleRight (RoleID)
GO
create index IX_RoleRight_Function on RoleRight (ModuleCode, ModuleFunction, IsAccess, RoleID)
GO
create table Modules (
    RecordID int not null primary key,
    ModuleCode nvarchar(6) null,
    ModuleName nvarchar(50) null,
    TableName nvarchar(50) null,
    Note nvarchar(255) null
)
GO
create index IX_Modules_ModuleCode on Modules (ModuleCode)
GO
create index IX_Modules_TableName on Modules (TableName)
GO
create table ModuleFunction (
    RecordID int not null primary key,
    ModuleCode nvarchar(6) null,
    FunctionKey nvarchar(30) null,
    FunctionDesc nvarchar(50) null
)
GO
create index IX_ModuleFunction_ModuleCode on ModuleFunction (ModuleCode, FunctionKey)
GO

-- ---------------------------------------------------------------------------------------------------------------
-- Settings and organisation
-- ---------------------------------------------------------------------------------------------------------------
create table Options (
    VarName nvarchar(50) not null primary key,
    VarDesc nvarchar(255) null,
    VarType nvarchar(20) null,
    VarValue nvarchar(50) null
)
GO
create table Position (
    PostCode nvarchar(30) not null primary key,
    PostName nvarchar(25) null,
    Peoples int null,
    DeptCode nvarchar(50) null,
    Author nvarchar(50) null,
    Auditing nvarchar(50) null,
    Approver nvarchar(50) null,
    WriteDate nvarchar(30) null,
    AuditingDate nvarchar(30) null,
    ApproveDate nvarchar(30) null,
    ReportTo nvarchar(255) null,
    Guidance nvarchar(255) null,
    CoWorker nvarchar(255) null,
    Exterior nvarchar(255) null,
    Educational nvarchar(max) null,
    Training nvarchar(max) null,
    Experience nvarchar(max) null,
    Skill nvarchar(max) null,
    WorkPeriodic nvarchar(max) null,
    WorkDaily nvarchar(max) null,
    WorkFortuitous nvarchar(max) null,
    Authority nvarchar(max) null,
    Obligation nvarchar(max) null
)
GO
create index IX_Position_PostName on Position (PostName)
GO

-- ---------------------------------------------------------------------------------------------------------------
-- Test bank
-- ---------------------------------------------------------------------------------------------------------------
-- TypeCode is the key of the table: the generator gives 0010 for the tenth main type and for every later one, and a
-- second row of that code would end each list that is keyed by it. So the eleventh main type is refused at the insert.
create table TestingType (
    TypeCode nvarchar(10) not null primary key,
    TestingType nvarchar(50) not null,
    Author nvarchar(50) null,
    Auditing nvarchar(50) null,
    Approver nvarchar(50) null,
    WriteDate nvarchar(30) null,
    AuditingDate nvarchar(30) null,
    ApproverDate nvarchar(30) null,
    TestingResult1 nvarchar(50) null,
    TestingResult2 nvarchar(50) null,
    TestingResult3 nvarchar(50) null,
    TestingResult4 nvarchar(50) null,
    TestingNote1 nvarchar(50) null,
    TestingNote2 nvarchar(50) null,
    TestingNote3 nvarchar(50) null,
    TestingNote4 nvarchar(50) null,
    Note nvarchar(500) null
)
GO
create index IX_TestingType_Name on TestingType (TestingType)
GO
-- Named by the deletion of a subtype only; without it that deletion would report a failure.
create table TestingTypeCode (
    TypeCode nvarchar(10) null
)
GO
-- The score bands hold an ASCII hyphen and are searched for a full-width one. Their own collation makes every server
-- take the two for the same.
create table Examination (
    ExaminationID int identity(1,1) not null primary key,
    TypeCode nvarchar(10) null,
    ExaminationNum nvarchar(10) null,
    Author nvarchar(50) null,
    Auditing nvarchar(50) null,
    Approver nvarchar(50) null,
    WriteDate nvarchar(30) null,
    AuditingDate nvarchar(30) null,
    ApproverDate nvarchar(30) null,
    AnswerAmount int null,
    TestingTime int null,
    Note nvarchar(50) null,
    ScoreScope1 nvarchar(20) collate Chinese_PRC_CI_AI null,
    ScoreScope2 nvarchar(20) collate Chinese_PRC_CI_AI null,
    ScoreScope3 nvarchar(20) collate Chinese_PRC_CI_AI null,
    ScoreScope4 nvarchar(20) collate Chinese_PRC_CI_AI null,
    ScoreScope5 nvarchar(20) collate Chinese_PRC_CI_AI null,
    DescScope1 nvarchar(50) null,
    DescScope2 nvarchar(50) null,
    DescScope3 nvarchar(50) null,
    DescScope4 nvarchar(50) null,
    DescScope5 nvarchar(50) null,
    Status nvarchar(20) null
)
GO
create index IX_Examination_TypeCode on Examination (TypeCode, ExaminationNum)
GO
create index IX_Examination_Number on Examination (ExaminationNum)
GO
create table ExaminationQuestion (
    QuestionID int identity(1,1) not null primary key,
    ExaminationID int null,
    QuestionName nvarchar(100) not null,
    Answer1 nvarchar(100) null,
    Score1 int null,
    Answer2 nvarchar(100) null,
    Score2 int null,
    Answer3 nvarchar(100) null,
    Score3 int null,
    Answer4 nvarchar(100) null,
    Score4 int null,
    Answer5 nvarchar(100) null,
    Score5 int null
)
GO
create index IX_ExaminationQuestion_Paper on ExaminationQuestion (ExaminationID, QuestionName)
GO

-- ---------------------------------------------------------------------------------------------------------------
-- Competency models
-- ---------------------------------------------------------------------------------------------------------------
create table TestingSolution (
    SolutionID int identity(1,1) not null primary key,
    SolutionName nvarchar(25) null,
    PostName nvarchar(25) null,
    Version nvarchar(5) null,
    Author nvarchar(50) null,
    Auditing nvarchar(50) null,
    Approver nvarchar(50) null,
    WriteDate nvarchar(30) null,
    AuditingDate nvarchar(30) null,
    ApproverDate nvarchar(30) null,
    Note nvarchar(50) null
)
GO
create index IX_TestingSolution_Name on TestingSolution (SolutionName)
GO
create table TestingSolutionDetail (
    SolutionID int null,
    TypeCode nvarchar(10) null,
    TypeName nvarchar(50) null,
    Score float null,
    Weighing float null
)
GO
create index IX_TestingSolutionDetail_Line on TestingSolutionDetail (SolutionID, TypeCode)
GO

-- ---------------------------------------------------------------------------------------------------------------
-- Results
-- ---------------------------------------------------------------------------------------------------------------
create table TestingResult (
    TestingID int identity(1,1) not null primary key,
    TestingNumber int null,
    IdNumber nvarchar(20) null,
    Name nvarchar(20) null,
    Sex nvarchar(2) null,
    Age int null,
    Education nvarchar(20) null,
    PostName nvarchar(50) null,
    Salary nvarchar(50) null,
    TestingDate nvarchar(20) null,
    TypeName nvarchar(50) null,
    TypeCode nvarchar(10) null,
    ExaminationID int null,
    ExamQuestions int null,
    FactQuestions int null,
    Score float null,
    TestingResult nvarchar(50) null,
    TestingDesc nvarchar(255) null,
    SolutionID int null,
    Version nvarchar(5) null
)
GO
create index IX_TestingResult_Number on TestingResult (TestingNumber)
GO
create index IX_TestingResult_Person on TestingResult (IdNumber, TestingDate)
GO
create index IX_TestingResult_Date on TestingResult (TestingDate)
GO
create index IX_TestingResult_TypeName on TestingResult (TypeName, TestingResult)
GO
create index IX_TestingResult_TypeCode on TestingResult (TypeCode, SolutionID)
GO
create table TestingResultDetail (
    ID int identity(1,1) not null primary key,
    TestingID int null,
    ExaminationID int null,
    QuestionName nvarchar(100) null,
    Answer1 nvarchar(100) null,
    Answer2 nvarchar(100) null,
    Answer3 nvarchar(100) null,
    Answer4 nvarchar(100) null,
    Answer5 nvarchar(100) null,
    SelectAnswer nvarchar(1) null,
    Score int null
)
GO
create index IX_TestingResultDetail_Test on TestingResultDetail (TestingID)
GO
-- Every submission rescores all answers ever stored for its paper. With this index the rows whose score changes are
-- found without reading the others.
create index IX_TestingResultDetail_Answer on TestingResultDetail (ExaminationID, SelectAnswer, Score, QuestionName)
GO
create table Query (
    QueryID int identity(1,1) not null primary key,
    Query nvarchar(255) null,
    Condition nvarchar(max) null
)
GO
create index IX_Query_Query on Query (Query)
GO
