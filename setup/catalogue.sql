-- The catalogue rows that Talvora needs in its tables, in T-SQL. Run after schema.sql, once. Each batch ends with a
-- line GO.

-- The module tree: headings of 3 digits, modules of 6 under them. TableName is the key by which the program knows a
-- module. The workbench opens on the first module of the first heading.
insert into Modules (RecordID, ModuleCode, ModuleName, TableName, Note) values
    (1, N'001', N'人事测评', null, N'测评工作'),
    (2, N'001001', N'人员测评', N'testing', N'进行测评，查询、导出和打印测评记录'),
    (3, N'001002', N'测评试卷', N'testingtype', N'测评主类、测评子类、试卷及试题'),
    (4, N'001003', N'素质模型', N'solution', N'职位的测评维度、要素及其权重'),
    (5, N'002', N'设置', null, N'组织与权限'),
    (6, N'002001', N'职位', N'position', N'职位树及编制人数'),
    (7, N'002002', N'用户', N'users', N'登录用户及其所属角色'),
    (8, N'002003', N'角色', N'roles', N'角色及其模块、功能权限')
GO

-- What a role can be granted. "browse" opens the module; every other key is that of a button on its toolbar.
insert into ModuleFunction (RecordID, ModuleCode, FunctionKey, FunctionDesc) values
    (1, N'001001', N'browse', N'浏览'),
    (2, N'001001', N'add', N'新测评'),
    (3, N'001001', N'del', N'删除测评记录'),
    (4, N'001001', N'detail', N'显示测评明细'),
    (5, N'001001', N'find', N'查找测评记录'),
    (6, N'001001', N'export', N'导出Excel'),
    (7, N'001001', N'print', N'打印'),
    (8, N'001002', N'browse', N'浏览'),
    (9, N'001002', N'type1', N'增加测评主类'),
    (10, N'001002', N'type2', N'增加测评子类'),
    (11, N'001002', N'type3', N'增加试卷'),
    (12, N'001002', N'level', N'显示层级'),
    (13, N'001002', N'edit', N'修改类型和试卷'),
    (14, N'001002', N'del', N'删除类型和试卷'),
    (15, N'001002', N'detail', N'显示试题'),
    (16, N'001002', N'export', N'导出Excel'),
    (17, N'001002', N'print', N'打印'),
    (18, N'001003', N'browse', N'浏览'),
    (19, N'001003', N'add', N'增加素质模型'),
    (20, N'001003', N'edit', N'修改素质模型'),
    (21, N'001003', N'del', N'删除素质模型'),
    (22, N'001003', N'export', N'导出Excel'),
    (23, N'001003', N'print', N'打印'),
    (24, N'002001', N'browse', N'浏览'),
    (25, N'002001', N'type1', N'增加同级职位'),
    (26, N'002001', N'type2', N'增加子级职位'),
    (27, N'002001', N'edit', N'修改职位'),
    (28, N'002001', N'del', N'删除职位'),
    (29, N'002001', N'level', N'显示层级'),
    (30, N'002001', N'export', N'导出Excel'),
    (31, N'002001', N'print', N'打印'),
    (32, N'002002', N'browse', N'浏览'),
    (33, N'002002', N'add', N'增加用户'),
    (34, N'002002', N'edit', N'修改用户和密码'),
    (35, N'002002', N'del', N'删除用户'),
    (36, N'002002', N'export', N'导出Excel'),
    (37, N'002002', N'print', N'打印'),
    (38, N'002003', N'browse', N'浏览'),
    (39, N'002003', N'add', N'增加角色'),
    (40, N'002003', N'edit', N'修改角色'),
    (41, N'002003', N'del', N'删除角色'),
    (42, N'002003', N'export', N'导出Excel'),
    (43, N'002003', N'print', N'打印')
GO

insert into Options (VarName, VarDesc, VarType, VarValue) values
    (N'blnCheckId', N'验证身份证的合法性', N'Boolean', N'Y'),
    (N'intTimeInterval', N'同一个人两次测评间的最小间隔（分钟）', N'Integer', N'30'),
    (N'blnLockTerminal', N'锁定自助测评终端，不允许自助测评', N'Boolean', N'N'),
    (N'blnPostRelational', N'测评时，职位自动对应相应的素质模型', N'Boolean', N'N')
GO

insert into Roles (RoleName, RoleCode, RoleDesc) values (N'系统管理员', N'001', N'系统角色，拥有全部权限')
GO
insert into RoleRight (RoleID, ModuleCode, ModuleFunction, IsAccess)
    select r.RoleID, f.ModuleCode, f.FunctionKey, 1 from Roles r, ModuleFunction f where r.RoleName = N'系统管理员'
GO

-- The system user comes locked and without a password, so that nobody gets in by an empty one: the set-up tool
-- unlocks it as it sets the password that was chosen at the installation.
insert into Users (UserName, UserDesc, Password, Locked) values (N'admin', N'系统用户', N'', 1)
GO
insert into UserRole (UserID, RoleID)
    select u.UserID, r.RoleID from Users u, Roles r where u.UserName = N'admin' and r.RoleName = N'系统管理员'
GO
