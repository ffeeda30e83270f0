-- Positions, roles and users of the sample bank, in T-SQL. Run after catalogue.sql. Each batch ends with a line GO.

insert into Position (PostCode, PostName, Peoples) values
    (N'001', N'总经理办公室', 6),
    (N'001001', N'行政经理', 1),
    (N'001001001', N'行政专员', 2),
    (N'001002', N'法务专员', 1),
    (N'002', N'人力资源部', 9),
    (N'002001', N'招聘经理', 1),
    (N'002001001', N'招聘专员', 3),
    (N'002002', N'培训经理', 1),
    (N'002002001', N'培训专员', 2),
    (N'003', N'市场与销售部', 34),
    (N'003001', N'区域销售经理', 4),
    (N'003001001', N'客户代表', 20),
    (N'003001002', N'销售助理', 4),
    (N'003002', N'市场策划专员', 3),
    (N'004', N'研发中心', 42),
    (N'004001', N'项目经理', 5),
    (N'004001001', N'软件工程师', 24),
    (N'004001002', N'测试工程师', 8),
    (N'004002', N'产品经理', 3),
    (N'005', N'生产与供应部', 58),
    (N'005001', N'车间主任', 3),
    (N'005001001', N'质量检验员', 9),
    (N'005002', N'采购专员', 4)
GO

-- Two roles on the first level, each with one under it. A role under another inherits nothing from it.
insert into Roles (RoleName, RoleCode, RoleDesc) values
    (N'测评主管', N'002', N'管理试卷、素质模型和测评记录'),
    (N'测评专员', N'002001', N'主持测评，查询和打印结果'),
    (N'人事经理', N'003', N'查阅测评结果，维护职位'),
    (N'题库编辑', N'003001', N'编制测评类型和试卷')
GO
-- One row for each role and function, granted or not, as the role editor stores them.
insert into RoleRight (RoleID, ModuleCode, ModuleFunction, IsAccess)
    select r.RoleID, f.ModuleCode, f.FunctionKey, case when f.ModuleCode in (N'001001', N'001002', N'001003') then 1 else 0 end
    from Roles r, ModuleFunction f where r.RoleName = N'测评主管'
GO
insert into RoleRight (RoleID, ModuleCode, ModuleFunction, IsAccess)
    select r.RoleID, f.ModuleCode, f.FunctionKey, case when f.ModuleCode = N'001001' and f.FunctionKey <> N'del' then 1 else 0 end
    from Roles r, ModuleFunction f where r.RoleName = N'测评专员'
GO
insert into RoleRight (RoleID, ModuleCode, ModuleFunction, IsAccess)
    select r.RoleID, f.ModuleCode, f.FunctionKey,
        case when f.ModuleCode = N'002001' then 1
             when f.ModuleCode = N'001001' and f.FunctionKey in (N'browse', N'detail', N'find', N'export', N'print') then 1
             else 0 end
    from Roles r, ModuleFunction f where r.RoleName = N'人事经理'
GO
insert into RoleRight (RoleID, ModuleCode, ModuleFunction, IsAccess)
    select r.RoleID, f.ModuleCode, f.FunctionKey, case when f.ModuleCode = N'001002' then 1 else 0 end
    from Roles r, ModuleFunction f where r.RoleName = N'题库编辑'
GO

-- The password of each is its login name. One user is locked.
insert into Users (UserName, UserDesc, Password, Locked) values
    (N'zhouyq', N'周雅琴，测评主管', N'zhouyq', 0),
    (N'xuwj', N'许文静，测评专员', N'xuwj', 0),
    (N'lintao', N'林涛，题库编辑', N'lintao', 0),
    (N'guming', N'顾明，人事经理', N'guming', 0),
    (N'qianbo', N'钱波，已调离', N'qianbo', 1)
GO
insert into UserRole (UserID, RoleID) select u.UserID, r.RoleID from Users u, Roles r where u.UserName = N'zhouyq' and r.RoleName in (N'测评主管', N'测评专员')
GO
insert into UserRole (UserID, RoleID) select u.UserID, r.RoleID from Users u, Roles r where u.UserName in (N'xuwj', N'qianbo') and r.RoleName = N'测评专员'
GO
insert into UserRole (UserID, RoleID) select u.UserID, r.RoleID from Users u, Roles r where u.UserName = N'lintao' and r.RoleName = N'题库编辑'
GO
insert into UserRole (UserID, RoleID) select u.UserID, r.RoleID from Users u, Roles r where u.UserName = N'guming' and r.RoleName = N'人事经理'
GO
