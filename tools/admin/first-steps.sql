-- The rows that an empty database needs before anybody can log in and work: one property, one department with one
-- position, one member of staff who holds it, and the menus that the position may use. Change the names, the numbers and
-- the password to your own, then: tenant-desk-admin run FILE first-steps.sql

-- The managed property, and the department that works for it.
Insert Into 设置管理处 (GYD_DH,GYD_Name) Values ('01','东塔')
Insert Into 职能部门类别 (部门类别代号,部门类别名称) Values ('A','业务部门')
Insert Into 职能部门new (职能部门编号,职能部门名称,职能部门类别代号) Values ('01','招商部','A')
Insert Into 职能部门对应管理项目设置 (职能部门编号,管理处代号) Values ('01','01')

-- A position in it, and who holds it.
Insert Into 岗位类别 (岗位类别编号,岗位类别名称) Values ('1','主管')
Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号,岗位类别代号,工号) Values ('0101','招商主管','01','1','1001')
Insert Into 员工档案 (工号,姓名,帐号密码) Values ('1001','管理员','please-change')
Insert Into 岗位员工new (员工代号,岗位代号,主要岗位) Values ('1001','0101',1)

-- The menus of the position. A menu entry needs its menu's own row as well.
Insert Into 岗位权限设置 (组代号,岗位代号,授权) Values ('01','0101',1)
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','引驻信息管理',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','客户信息登记',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','客户跟进分配',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','客户跟进管理',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','意向客户管理',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','意向客户登记',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','意向客户审批',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','统计报表',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','跟进状态分析',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','基础信息设置',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','人员设置',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','中介公司设置',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','客户设置',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','引驻设置',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','意向书审批流程设置',1,'引驻台账')
Insert Into GroupPrivilege (GroupID,FormName,Popedom,memo) Values ('01','关于我们',1,'引驻台账')

-- Numbers of registered customers begin with the year, those of letters of intent with YX and the year.
Insert Into Temp_Type (TypeName,Value,Character) Values ('引驻登记','年份',Null)
Insert Into Temp_Type (TypeName,Value,Character) Values ('意向书登记','年份','YX')

-- One section of the property with two units, which this member of staff may see on the map of units.
Insert Into 楼表 (L_ID,楼编号,地址1,字1,管理处,开始日期) Values (1,'1','东塔','座','01','2020-1-1')
Insert Into 室表 (S_ID,L_ID,室,层次,建筑面积,开始日期) Values (1,1,'101','1',100,'2020-1-1')
Insert Into 室表 (S_ID,L_ID,室,层次,建筑面积,开始日期) Values (2,1,'102','1',120,'2020-1-1')
Insert Into 楼域范围设置 (工号,L_ID) Values ('1001',1)
